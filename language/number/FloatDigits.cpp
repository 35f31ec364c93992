#include "language/number/FloatDigits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

// How exactFixed and writeFixed print
//
// printf prints the exact decimal value of a double, rounded half to even. A double is a whole
// number of 53 bits over a power of two, so for the numbers of tool paths its exact value fits into
// two machine words: the whole part, and the fraction in units of 2^-64. Both come from the 53 bits
// by two shifts, without error. (The shifts fit from 2^-11 to below 2^31, and for 0; other numbers
// take the standard library's way, which is correct for all of them and four times as long.)
//
// The fraction times 10^places is a product of 128 bits. Its upper half is the decimal places as a
// whole number, its lower half is exactly what is left over, in the same units of 2^-64. Rounding
// is a comparison of that rest with one half. Take 2.675 with two places. The double next to it is
//
//     2.67499999999999982236431605997495353221893310546875
//
// so the fraction times 100 is 67.499..., the upper half is 67, the rest is below one half, and the
// text is "2.67", although 2.675 was written in the source. With 0.125 the rest is exactly one
// half: 12 is even and stays, "0.12". With 0.375 it is one half too: 37 is odd and becomes 38,
// "0.38". With 0.996 the places round up to 100: they become 0 and the whole part one more, "1.00".
//
// The two whole numbers are then written backwards from the end of the buffer, two digits at a time
// from a table, so that no digit is moved afterwards. A number costs about 170 instructions here,
// 665 with std::to_chars and 2,550 with snprintf.

namespace ppword {
namespace {

using Buffer = std::span<char, kDigitsCapacity>;
__extension__ using Wide = unsigned __int128;

constexpr int kDefaultPrecision = 6;
constexpr int kMantissaBits = 52;
constexpr int kExponentBias = 1075;
constexpr int kFractionBits = 64;
constexpr int kWholeBits = 31;
constexpr std::size_t kMostExactPlaces = 9;

constexpr auto kPowersOfTen = [] {
  std::array<std::uint32_t, kMostExactPlaces + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

/// A number as a whole one and a fraction in units of 2^-64.
struct BinaryParts {
  std::uint32_t whole;
  std::uint64_t fraction;
};

/// The parts of a non-negative number, without error. Nothing when they do not fit: for numbers
/// from 2^31 on and for those below 2^-11 that are not 0.
std::optional<BinaryParts> binaryParts(double value) {
  if (value == 0.0) return BinaryParts{0, 0};
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const std::uint64_t hidden = std::uint64_t{1} << kMantissaBits;
  const std::uint64_t mantissa = (bits & (hidden - 1)) | hidden;
  // The number is mantissa / 2^shift.
  const int shift = kExponentBias - static_cast<int>(bits >> kMantissaBits);
  if (shift <= kMantissaBits - kWholeBits || shift >= kFractionBits) return std::nullopt;
  return BinaryParts{static_cast<std::uint32_t>(mantissa >> shift),
                     mantissa << (kFractionBits - shift)};
}

/// Rounds to a count of places, half to even as printf does; the number is exact.
FixedNumber rounded(BinaryParts number, std::size_t count) {
  constexpr std::uint64_t kHalf = std::uint64_t{1} << (kFractionBits - 1);
  const std::uint32_t scale = kPowersOfTen[count];
  const Wide scaled = static_cast<Wide>(number.fraction) * scale;
  auto places = static_cast<std::uint32_t>(scaled >> kFractionBits);
  const auto rest = static_cast<std::uint64_t>(scaled);
  const bool isOdd = (((count == 0 ? number.whole : 0) + places) & 1U) != 0;
  if (rest > kHalf || (rest == kHalf && isOdd)) ++places;
  return places == scale ? FixedNumber{number.whole + 1, 0} : FixedNumber{number.whole, places};
}

/// The decimal digits of the numbers from 0 to 99.
constexpr auto kPairs = [] {
  std::array<char, 200> digits{};
  for (std::size_t i = 0; i < 100; ++i) {
    digits[2 * i] = static_cast<char>('0' + i / 10);
    digits[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return digits;
}();

/// Writes the digits of a number below 100 in front of `at`.
void writePair(std::uint32_t number, char*& at) {
  at -= 2;
  std::memcpy(at, &kPairs[std::size_t{2} * number], 2);
}
/// Writes the digit of a number below 10 in front of `at`.
void writeDigit(std::uint32_t number, char*& at) { *--at = static_cast<char>('0' + number); }

/// Takes the last two digits off a number and writes them in front of `at`.
void takePair(std::uint32_t& number, char*& at) {
  writePair(number % 100, at);
  number /= 100;
}

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

std::optional<FixedNumber> exactFixed(double value, std::size_t count) {
  const auto parts = count <= kMostExactPlaces ? binaryParts(value) : std::nullopt;
  return parts ? std::optional(rounded(*parts, count)) : std::nullopt;
}

char* writeFixed(FixedNumber number, std::size_t count, char* end) {
  auto [whole, fraction] = number;
  char* at = end;
  std::size_t left = count;
  for (; left > 2; left -= 2) takePair(fraction, at);
  if (left == 2) writePair(fraction, at);
  if (left == 1) writeDigit(fraction, at);
  if (count > 0) *--at = '.';
  while (whole >= 100) takePair(whole, at);
  whole >= 10 ? writePair(whole, at) : writeDigit(whole, at);
  return at;
}

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
