#pragma once

#include "KEPIMfgBufferCorrectorNumber.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferCorrectorNumber.
class KEPMfgBufferCorrectorNumber final
    : public ppword::Registered<KEPMfgBufferCorrectorNumber, KEPIMfgBufferCorrectorNumber> {
 public:
  void SetNumber(int number) override {
    previousNumber_ = number_;
    number_ = number;
  }
  void GetNumber(int& number) const override { number = number_; }

  void SetPreviousNumber(int number) override { previousNumber_ = number; }
  void GetPreviousNumber(int& number) const override { number = previousNumber_; }

 private:
  int number_ = 0;
  int previousNumber_ = 0;
};
