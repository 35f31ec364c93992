#pragma once

#include "Knowledge/KEPICkeParm.h"
#include "System/KEPVar.h"

/// The current spindle speed: a knowledge parameter, a factor on its value and the way of rotation.
/// The factor cannot be read back, and the angular test stands before the linear one.
class KEP_PLATFORM KEPIMfgBufferSpindle : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferSpindle";

  /// Keeps the knowledge parameter; null when `parameter` is none. Null until set.
  virtual void SetSpindleParameter(const KEPBaseUnknown_var& parameter) = 0;

  /// The number that the parameter's value text begins with, times the factor; 0 without a
  /// parameter or a number.
  virtual void GetValue(double& value) const = 0;

  /// 1 until set.
  virtual void SetFactor(const double& factor) = 0;

  /// Sets `angular` (`linear`) to whether the type of the parameter is named ANGULARSPINDLESPEED
  /// (LINEARSPINDLESPEED). False, with the flag false, when there is no parameter or it has no
  /// type.
  virtual bool IsAngular(bool& angular) const = 0;
  virtual bool IsLinear(bool& linear) const = 0;

  /// The code of the way of rotation; 1 until set.
  virtual void SetWay(int way) = 0;
  virtual void GetWay(int& way) const = 0;
};

using KEPIMfgBufferSpindle_var = KEPVar<KEPIMfgBufferSpindle>;
