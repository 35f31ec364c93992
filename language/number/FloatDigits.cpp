#include "language/number/FloatDigits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

#include "language/number/FixedDigits.h"

namespace ppword {
namespace {

using Buffer = std::span<char, kDigitsCapacity>;

constexpr int kDefaultPrecision = 6;

std::string_view standardDigits(double value, std::chars_format format, int precision,
                                Buffer buffer) {
  const auto result =
      precision < 0
          ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format)
          : std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, precision);
  return {buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data())};
}

std::string_view fixedDigits(double value, int precision, Buffer buffer) {
  char* const end = buffer.data() + buffer.size();
  const auto places = static_cast<std::size_t>(precision);
  const auto number = exactFixed(value, places);
  if (!number) return standardDigits(value, std::chars_format::fixed, precision, buffer);
  const char* const first = writeFixed(*number, places, end);
  return {first, static_cast<std::size_t>(end - first)};
}

/// "#" of fixed, scientific and hexadecimal notation: there is always a decimal point.
std::string_view withPoint(std::string_view digits, Buffer buffer) {
  if (digits.find('.') != std::string_view::npos) return digits;
  const std::size_t place = std::min(digits.find_first_of("ep"), digits.size());
  std::memmove(buffer.data(), digits.data(), digits.size());
  std::memmove(buffer.data() + place + 1, buffer.data() + place, digits.size() - place);
  buffer[place] = '.';
  return {buffer.data(), digits.size() + 1};
}

/// "#" of general notation: trailing zeros stay, so the notation is chosen here.
std::string_view generalDigitsWithZeros(double value, int precision, Buffer buffer) {
  const std::string_view scientific =
      standardDigits(value, std::chars_format::scientific, precision - 1, buffer);
  const std::size_t mark = scientific.find('e');
  int exponent = 0;
  const char* const first = scientific.data() + mark + (scientific[mark + 1] == '+' ? 2 : 1);
  std::from_chars(first, scientific.data() + scientific.size(), exponent);
  if (exponent < -4 || exponent >= precision) return withPoint(scientific, buffer);
  return withPoint(fixedDigits(value, precision - 1 - exponent, buffer), buffer);
}

std::string_view generalDigits(double value, int precision, bool alternate, Buffer buffer) {
  const int significant = std::max(precision, 1);
  if (alternate) return generalDigitsWithZeros(value, significant, buffer);
  return standardDigits(value, std::chars_format::general, significant, buffer);
}

}  // namespace

std::string_view floatDigits(double value, char conversion, int precision, bool alternate,
                             std::span<char, kDigitsCapacity> buffer) {
  const int places = precision < 0 && conversion != 'a' ? kDefaultPrecision : precision;
  if (conversion == 'f' && !alternate) return fixedDigits(value, places, buffer);
  if (conversion == 'g') return generalDigits(value, places, alternate, buffer);
  const std::string_view digits =
      conversion == 'f'   ? fixedDigits(value, places, buffer)
      : conversion == 'e' ? standardDigits(value, std::chars_format::scientific, places, buffer)
                          : standardDigits(value, std::chars_format::hex, places, buffer);
  return alternate ? withPoint(digits, buffer) : digits;
}

}  // namespace ppword
