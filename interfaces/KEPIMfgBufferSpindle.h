#pragma once

#include "Knowledge/KEPICkeParm.h"
#include "System/KEPComponent.h"

/// The current spindle speed: a knowledge parameter, a factor for its value and the way (direction)
/// of rotation. The factor cannot be read back, and IsAngular comes before IsLinear in the virtual
/// table.
class KEP_PLATFORM KEPIMfgBufferSpindle : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferSpindle";

  /// Stores `parameter`, or null when it is not a knowledge parameter. Null until set.
  virtual void SetSpindleParameter(const KEPBaseUnknown_var& parameter) = 0;

  /// The number at the start of the parameter's value text, times the factor; 0 without a parameter
  /// or a number.
  virtual void GetValue(double& value) const = 0;

  /// 1 until set.
  virtual void SetFactor(const double& factor) = 0;

  /// Sets `angular` (`linear`) to whether the type of the parameter has the name
  /// ANGULARSPINDLESPEED (LINEARSPINDLESPEED). Returns false, and the flag is false, when there is
  /// no parameter or it has no type.
  virtual bool IsAngular(bool& angular) const = 0;
  virtual bool IsLinear(bool& linear) const = 0;

  /// The code of the way of rotation; 1 until set.
  virtual void SetWay(int way) = 0;
  virtual void GetWay(int& way) const = 0;
};

using KEPIMfgBufferSpindle_var = KEPVar<KEPIMfgBufferSpindle>;
