#pragma once

#include "KEPIMfgBufferSeqMotionNumber.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferSeqMotionNumber.
class KEPMfgBufferSeqMotionNumber final
    : public ppword::Registered<KEPMfgBufferSeqMotionNumber, KEPIMfgBufferSeqMotionNumber> {
 public:
  void SetNumber(int number) override { number_ = number; }
  void GetNumber(int& number) const override { number = number_; }

 private:
  int number_ = -1;
};
