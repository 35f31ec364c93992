#include "src/number/FloatDigits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

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

char* writePlaces(std::uint64_t digits, int places, char* at) {
  for (int i = places - 1; i >= 0; --i, digits /= 10) {
    at[i] = static_cast<char>('0' + digits % 10);
  }
  return at + places;
}

/// Fixed notation by whole numbers, rounded half to even on the exact value as printf does. Empty
/// when the number is outside what fits.
std::string_view exactFixed(double value, int places, Room room) {
  if (!(value < kExactBound) || places > kMostExactPlaces) return {};
  auto whole = static_cast<std::uint64_t>(value);
  const double fraction = value - static_cast<double>(whole);
  const std::uint64_t scale = kPowersOfTen[static_cast<std::size_t>(places)];
  std::uint64_t digits = 0;
  if (fraction != 0.0) {
    const auto [mantissa, shift] = binaryFraction(fraction);
    if (shift > kMostExactShift) return {};
    const Wide product = static_cast<Wide>(mantissa) * scale;
    const Wide rest = product & ((Wide{1} << shift) - 1);
    const Wide half = Wide{1} << (shift - 1);
    digits = static_cast<std::uint64_t>(product >> shift);
    const bool odd = ((places == 0 ? whole : digits) & 1U) != 0;
    if (rest > half || (rest == half && odd)) ++digits;
    if (digits == scale) {
      ++whole;
      digits = 0;
    }
  }
  char* at = std::to_chars(room.data(), room.data() + room.size(), whole).ptr;
  if (places > 0) {
    *at++ = '.';
    at = writePlaces(digits, places, at);
  }
  return {room.data(), static_cast<std::size_t>(at - room.data())};
}

std::string_view standardDigits(double value, std::chars_format format, int precision, Room room) {
  const auto result =
      precision < 0 ? std::to_chars(room.data(), room.data() + room.size(), value, format)
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
  const std::size_t end = std::min(digits.find_first_of("ep"), digits.size());
  char* const point = room.data() + end;
  std::memmove(point + 1, point, digits.size() - end);
  *point = '.';
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
  std::string_view digits;
  switch (conversion) {
    case 'g':
      return generalDigits(value, places, alternate, room);
    case 'e':
      digits = standardDigits(value, std::chars_format::scientific, places, room);
      break;
    case 'a':
      digits = standardDigits(value, std::chars_format::hex, places, room);
      break;
    default:
      digits = fixedDigits(value, places, room);
  }
  return alternate ? withPoint(digits, room) : digits;
}

}  // namespace ppword
