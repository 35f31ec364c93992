#pragma once

#include "KEPIMfgBufferHoleNumber.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferHoleNumber.
class KEPMfgBufferHoleNumber final
    : public ppword::Registered<KEPMfgBufferHoleNumber, KEPIMfgBufferHoleNumber> {
 public:
  void SetNumber(int number) override { number_ = number; }
  void GetNumber(int& number) const override { number = number_; }

 private:
  int number_ = -1;
};
