#include "language/number/PlainFixed.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "language/number/FixedDigits.h"

namespace ppword {
namespace {

unsigned digitOf(char character) { return static_cast<unsigned>(character) - unsigned{'0'}; }

/// How many digits a whole number has.
std::size_t digitCount(std::uint32_t number) {
  std::size_t count = 1;
  for (; number >= 1000; number /= 1000) count += 3;
  return count + (number >= 10 ? 1 : 0) + (number >= 100 ? 1 : 0);
}

/// Makes `count` characters blank, and those after them as far as this is quicker.
void fillBlank(char* at, std::size_t count) {
  constexpr std::size_t kAtOnce = 32;
  std::memset(at, ' ', kAtOnce);
  if (count > kAtOnce) std::memset(at + kAtOnce, ' ', count - kAtOnce);
}

}  // namespace

std::optional<PlainFixed> PlainFixed::parse(std::string_view format) {
  const std::size_t size = format.size();
  if (size < 4 || size > 6 || format.front() != '%' || format[size - 3] != '.' ||
      format.back() != 'f') {
    return std::nullopt;
  }
  const unsigned tens = size == 6 ? digitOf(format[1]) : 0;
  const unsigned ones = size > 4 ? digitOf(format[size - 4]) : 0;
  const unsigned places = digitOf(format[size - 2]);
  // A "0" in front would be a flag.
  const bool isPlain = format[1] != '0' && tens < 10 && ones < 10 && places < 10;
  return isPlain ? std::optional(PlainFixed(tens * 10 + ones, places)) : std::nullopt;
}

char* PlainFixed::print(double value, char* at) const {
  const double size = std::fabs(value);
  const bool isZero = size < kSnapToZero;
  const auto number = exactFixed(isZero ? 0.0 : size, places_);
  if (!number) return nullptr;
  const bool isNegative = value < 0.0 && !isZero;
  const std::size_t length =
      digitCount(number->whole) + (places_ > 0 ? places_ + 1 : 0) + (isNegative ? 1 : 0);
  char* const end = at + std::max<std::size_t>(length, width_);
  fillBlank(at, width_);
  char* const first = writeFixed(*number, places_, end);
  if (isNegative) *(first - 1) = '-';
  return end;
}

std::string PlainFixed::text() const {
  std::string format = "%";
  if (width_ > 0) format += std::to_string(width_);
  return format + '.' + std::to_string(places_) + 'f';
}

}  // namespace ppword
