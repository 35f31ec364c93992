#pragma once

#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"

/// A computed tool path.
class KEP_PLATFORM KEPIMfgTraject : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgTraject";

  /// Sets `known` to whether the type of the path is known and, if it is, `type` to its code: 1
  /// when the tool axis stays fixed, another number when it varies. A negative status means that
  /// this cannot be determined; `type` is then untouched.
  virtual HRESULT GetType(bool& known, int& type) const = 0;
};

using KEPIMfgTraject_var = KEPVar<KEPIMfgTraject>;

/// The tool path of an activity.
class KEP_PLATFORM KEPIMfgToolPathManagement : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgToolPathManagement";

  /// A negative status, or a null path, means that the path is not computed.
  virtual HRESULT GetToolPath(KEPIMfgTraject_var& path) const = 0;
};

using KEPIMfgToolPathManagement_var = KEPVar<KEPIMfgToolPathManagement>;
