#pragma once

#include <cmath>
#include <optional>
#include <string_view>

namespace ppword {

/// How real results of arithmetic are printed.
inline constexpr std::string_view kResultFormat = "%12.6f";

/// No result may be above it. Negative ones are not bounded.
inline constexpr double kOverflowBound = 1.0e20;

/// The divisor of a group must be above it, whatever its sign.
inline constexpr double kDivisionThreshold = 1.0e-7;

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

/// The value of a group; nothing when the group stays.
[[nodiscard]] inline std::optional<double> groupValue(char sign, double left, double right) {
  if (sign == '/' && std::fabs(right) <= kDivisionThreshold) return std::nullopt;
  const double value = computed(sign, left, right);
  // deliberate: large negative results are not bounded.
  if (!std::isfinite(value) || value > kOverflowBound) return std::nullopt;
  return value;
}

}  // namespace ppword
