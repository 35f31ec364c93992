#pragma once

#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"

/// Removal of a feature.
class KEP_PLATFORM KEPILifeCycleObject : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPILifeCycleObject";

  /// Removes the feature from its container. Handles that still refer to it stay valid; the feature
  /// then has no container. Fails when it was removed before.
  virtual HRESULT remove() = 0;
};

using KEPILifeCycleObject_var = KEPVar<KEPILifeCycleObject>;
