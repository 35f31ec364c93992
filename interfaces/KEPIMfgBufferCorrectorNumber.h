#pragma once

#include "System/KEPVar.h"

/// The number of the tool corrector in use and of the one before it.
class KEP_PLATFORM KEPIMfgBufferCorrectorNumber : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferCorrectorNumber";

  /// The current number becomes the previous one, then `number` the current one. 0 until set.
  virtual void SetNumber(int number) = 0;
  virtual void GetNumber(int& number) const = 0;

  /// Overwrites the previous number only. 0 until set.
  virtual void SetPreviousNumber(int number) = 0;
  virtual void GetPreviousNumber(int& number) const = 0;
};

using KEPIMfgBufferCorrectorNumber_var = KEPVar<KEPIMfgBufferCorrectorNumber>;
