#pragma once

#include "System/KEPComponent.h"

/// The number of the hole being machined.
class KEP_PLATFORM KEPIMfgBufferHoleNumber : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferHoleNumber";

  /// -1 until set: there is no hole yet.
  virtual void SetNumber(int number) = 0;
  virtual void GetNumber(int& number) const = 0;
};

using KEPIMfgBufferHoleNumber_var = KEPVar<KEPIMfgBufferHoleNumber>;
