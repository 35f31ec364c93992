#pragma once

#include "System/KEPResult.h"
#include "System/KEPVar.h"

/// Removal of a feature.
class KEP_PLATFORM KEPILifeCycleObject : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPILifeCycleObject";

  /// Takes the feature out of its container. Whoever still holds a handle keeps a feature without
  /// a container. Fails when it was removed before.
  virtual HRESULT remove() = 0;
};

using KEPILifeCycleObject_var = KEPVar<KEPILifeCycleObject>;
