#include "language/number/FloatDigits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

namespace ppword {
namespace {

using Room = std::span<char, kDigitsRoom>;
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

/// A number in fixed notation as two whole numbers.
struct FixedNumber {
  std::uint32_t whole;
  std::uint32_t places;
};

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

std::string_view standardDigits(double value, std::chars_format format, int precision, Room room) {
  const auto result =
      precision < 0
          ? std::to_chars(room.data(), room.data() + room.size(), value, format)
          : std::to_chars(room.data(), room.data() + room.size(), value, format, precision);
  return {room.data(), static_cast<std::size_t>(result.ptr - room.data())};
}

std::string_view fixedDigits(double value, int precision, Room room) {
  char* const end = room.data() + room.size();
  char* const first = writeExactFixed(value, static_cast<std::size_t>(precision), end);
  if (first == nullptr) return standardDigits(value, std::chars_format::fixed, precision, room);
  return {first, static_cast<std::size_t>(end - first)};
}

/// "#" of fixed, scientific and hexadecimal notation: a decimal point always stands.
std::string_view withPoint(std::string_view digits, Room room) {
  if (digits.find('.') != std::string_view::npos) return digits;
  const std::size_t place = std::min(digits.find_first_of("ep"), digits.size());
  std::memmove(room.data(), digits.data(), digits.size());
  std::memmove(room.data() + place + 1, room.data() + place, digits.size() - place);
  room[place] = '.';
  return {room.data(), digits.size() + 1};
}

/// "#" of general notation: trailing zeros stay, so the notation is chosen here.
std::string_view generalDigitsWithZeros(double value, int precision, Room room) {
  const std::string_view scientific =
      standardDigits(value, std::chars_format::scientific, precision - 1, room);
  const std::size_t mark = scientific.find('e');
  int exponent = 0;
  const char* const first = scientific.data() + mark + (scientific[mark + 1] == '+' ? 2 : 1);
  std::from_chars(first, scientific.data() + scientific.size(), exponent);
  if (exponent < -4 || exponent >= precision) return withPoint(scientific, room);
  return withPoint(fixedDigits(value, precision - 1 - exponent, room), room);
}

std::string_view generalDigits(double value, int precision, bool alternate, Room room) {
  const int significant = std::max(precision, 1);
  if (alternate) return generalDigitsWithZeros(value, significant, room);
  return standardDigits(value, std::chars_format::general, significant, room);
}

}  // namespace

char* writeExactFixed(double value, std::size_t places, char* end) {
  if (places > kMostExactPlaces) return nullptr;
  const auto parts = binaryParts(value);
  if (!parts) return nullptr;
  auto [whole, fraction] = rounded(*parts, places);
  char* at = end;
  std::size_t left = places;
  for (; left > 2; left -= 2) takePair(fraction, at);
  if (left == 2) writePair(fraction, at);
  if (left == 1) writeDigit(fraction, at);
  if (places > 0) *--at = '.';
  while (whole >= 100) takePair(whole, at);
  whole >= 10 ? writePair(whole, at) : writeDigit(whole, at);
  return at;
}

std::string_view floatDigits(double value, char conversion, int precision, bool alternate,
                             std::span<char, kDigitsRoom> room) {
  const int places = precision < 0 && conversion != 'a' ? kDefaultPrecision : precision;
  if (conversion == 'f' && !alternate) return fixedDigits(value, places, room);
  if (conversion == 'g') return generalDigits(value, places, alternate, room);
  const std::string_view digits =
      conversion == 'f'   ? fixedDigits(value, places, room)
      : conversion == 'e' ? standardDigits(value, std::chars_format::scientific, places, room)
                          : standardDigits(value, std::chars_format::hex, places, room);
  return alternate ? withPoint(digits, room) : digits;
}

}  // namespace ppword
