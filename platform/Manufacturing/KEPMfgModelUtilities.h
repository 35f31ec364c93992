#pragma once

#include <string_view>

#include "Manufacturing/KEPIMfgActivity.h"
#include "Manufacturing/KEPIMfgRootContainer.h"
#include "Manufacturing/KEPIMfgSetup.h"
#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"

class KEPIMfgPPWordContainer;

/// Paths through the manufacturing model, from one object to another. A path that cannot be
/// followed to its end returns a negative status and a null handle.
class KEP_PLATFORM KEPMfgModelUtilities {
 public:
  /// The PP word container that holds a feature; if the object is one itself, the object.
  static HRESULT GetPPWordContainer(const KEPBaseUnknown_var& object,
                                    KEPVar<KEPIMfgPPWordContainer>& container);
  /// The manufacturing root container of the document that holds an object.
  static HRESULT GetRootContainer(const KEPBaseUnknown_var& object, KEPIMfgRootContainer_var& root);
  /// The activity that the document is generating; it is the PP word container's first object.
  static HRESULT GetCurrentActivity(const KEPVar<KEPIMfgPPWordContainer>& container,
                                    KEPIMfgActivity_var& activity);
  /// The setup that an activity is part of.
  static HRESULT GetSetup(const KEPIMfgActivity_var& activity, KEPIMfgSetup_var& setup);
  /// The object of an activity (the activity itself, its tool ...) that has the parameter which NC
  /// output calls `name`.
  static HRESULT GetV5ObjectFromV4Parameter(const KEPIMfgActivity_var& activity,
                                            std::string_view name, KEPBaseUnknown_var& object);
};
