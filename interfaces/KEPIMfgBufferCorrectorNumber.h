#pragma once

#include "System/KEPComponent.h"

/// The number of the tool corrector in use, and of the previous one.
class KEP_PLATFORM KEPIMfgBufferCorrectorNumber : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferCorrectorNumber";

  /// The current number becomes the previous one, and `number` becomes the current one. 0 until
  /// set.
  virtual void SetNumber(int number) = 0;
  virtual void GetNumber(int& number) const = 0;

  /// Changes only the previous number. 0 until set.
  virtual void SetPreviousNumber(int number) = 0;
  virtual void GetPreviousNumber(int& number) const = 0;
};

using KEPIMfgBufferCorrectorNumber_var = KEPVar<KEPIMfgBufferCorrectorNumber>;
