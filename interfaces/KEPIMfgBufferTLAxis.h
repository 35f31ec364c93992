#pragma once

#include "System/KEPComponent.h"

/// The current tool axis.
class KEP_PLATFORM KEPIMfgBufferTLAxis : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferTLAxis";

  /// Components of the tool axis, stored unchanged (not normalised); 0, 0, 0 until set.
  virtual void SetTLAxis(double i, double j, double k) = 0;
  virtual void GetTLAxis(double& i, double& j, double& k) const = 0;
};

using KEPIMfgBufferTLAxis_var = KEPVar<KEPIMfgBufferTLAxis>;
