#pragma once

#include "System/KEPComponent.h"

/// The current point of the tool path.
class KEP_PLATFORM KEPIMfgBufferPoint : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferPoint";

  /// Coordinates in the unit of the output; 0, 0, 0 until set.
  virtual void SetPoint(double x, double y, double z) = 0;
  virtual void GetPoint(double& x, double& y, double& z) const = 0;
};

using KEPIMfgBufferPoint_var = KEPVar<KEPIMfgBufferPoint>;
