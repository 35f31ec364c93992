#pragma once

#include <string_view>

namespace ppword {

/// How real results of arithmetic are printed.
inline constexpr std::string_view kResultFormat = "%12.6f";

/// No result may be above it. Negative ones are not bounded.
inline constexpr double kOverflowBound = 1.0e20;

/// The result of one of "+", "-", "*" and "/".
[[nodiscard]] constexpr double computed(char sign, double left, double right) noexcept {
  switch (sign) {
    case '+':
      return left + right;
    case '-':
      return left - right;
    case '*':
      return left * right;
    default:
      return left / right;
  }
}

}  // namespace ppword
