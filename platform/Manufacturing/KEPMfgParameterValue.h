#pragma once

#include "System/KEPString.h"

/// A typed value: `kind` says which of the other members is valid.
struct KEPMfgParameterValue {
  static constexpr int kInteger = 1;
  static constexpr int kReal = 2;
  static constexpr int kText = 3;

  int kind = 0;
  int integer = 0;
  double real = 0.0;
  KEPUnicodeString text;
};
