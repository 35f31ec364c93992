#pragma once

#include "System/KEPComponent.h"

/// The number of the sequential motion being output.
class KEP_PLATFORM KEPIMfgBufferSeqMotionNumber : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferSeqMotionNumber";

  /// -1 until set: there is no motion yet.
  virtual void SetNumber(int number) = 0;
  virtual void GetNumber(int& number) const = 0;
};

using KEPIMfgBufferSeqMotionNumber_var = KEPVar<KEPIMfgBufferSeqMotionNumber>;
