#include "src/number/FloatDigits.h"

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
/// Below this the integer part is exact in 53 bits and the fraction is a difference without error.
constexpr double kExactBound = 9007199254740992.0;
constexpr int kMostExactPlaces = 18;
constexpr int kMostExactShift = 126;

constexpr auto kPowersOfTen = [] {
  std::array<std::uint64_t, kMostExactPlaces + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

/// A fraction in [0, 1) as the binary number mantissa / 2^shift.
struct BinaryFraction {
  std::uint64_t mantissa;
  int shift;
};

BinaryFraction binaryFraction(double fraction) {
  const auto bits = std::bit_cast<std::uint64_t>(fraction);
  const std::uint64_t hidden = std::uint64_t{1} << kMantissaBits;
  const int exponent = static_cast<int>(bits >> kMantissaBits);
  return {(bits & (hidden - 1)) | hidden, kExponentBias - exponent};
}

/// A number in fixed notation as two whole numbers.
struct FixedNumber {
  std::uint64_t whole;
  std::uint64_t places;
};

/// Rounds to `count` places, half to even on the exact value as printf does. Nothing when the number
/// is outside what fits.
std::optional<FixedNumber> roundedExactly(double value, int count) {
  if (!(value < kExactBound) || count > kMostExactPlaces) return std::nullopt;
  const auto whole = static_cast<std::uint64_t>(value);
  const double fraction = value - static_cast<double>(whole);
  if (fraction == 0.0) return FixedNumber{whole, 0};
  const auto [mantissa, shift] = binaryFraction(fraction);
  if (shift > kMostExactShift) return std::nullopt;
  const std::uint64_t scale = kPowersOfTen[static_cast<std::size_t>(count)];
  const Wide roundedUp = static_cast<Wide>(mantissa) * scale + (Wide{1} << (shift - 1));
  auto places = static_cast<std::uint64_t>(roundedUp >> shift);
  const bool isTie = (roundedUp & ((Wide{1} << shift) - 1)) == 0;
  const bool isOdd = (((count == 0 ? whole : 0) + places) & 1U) != 0;
  if (isTie && isOdd) --places;
  return places == scale ? FixedNumber{whole + 1, 0} : FixedNumber{whole, places};
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

/// Write the last digits of `number` in front of `at`.
void writePair(std::uint64_t& number, char*& at) {
  at -= 2;
  std::memcpy(at, &kPairs[2 * (number % 100)], 2);
  number /= 100;
}
void writeDigit(std::uint64_t& number, char*& at) {
  *--at = static_cast<char>('0' + number % 10);
  number /= 10;
}

/// Fixed notation by whole numbers, written from the end of the room; empty when it does not fit.
std::string_view exactFixed(double value, int count, Room room) {
  auto number = roundedExactly(value, count);
  if (!number) return {};
  char* const end = room.data() + room.size();
  char* at = end;
  for (int left = count; left >= 2; left -= 2) writePair(number->places, at);
  if (count % 2 != 0) writeDigit(number->places, at);
  if (count > 0) *--at = '.';
  while (number->whole >= 100) writePair(number->whole, at);
  do writeDigit(number->whole, at);
  while (number->whole != 0);
  return {at, static_cast<std::size_t>(end - at)};
}

std::string_view standardDigits(double value, std::chars_format format, int precision, Room room) {
  const auto result =
      precision < 0
          ? std::to_chars(room.data(), room.data() + room.size(), value, format)
          : std::to_chars(room.data(), room.data() + room.size(), value, format, precision);
  return {room.data(), static_cast<std::size_t>(result.ptr - room.data())};
}

std::string_view fixedDigits(double value, int precision, Room room) {
  const std::string_view exact = exactFixed(value, precision, room);
  return exact.empty() ? standardDigits(value, std::chars_format::fixed, precision, room) : exact;
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
