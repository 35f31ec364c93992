#pragma once

#include <array>
#include <bit>
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

/// A number in fixed notation as two whole numbers.
struct FixedNumber {
  std::uint32_t whole;
  std::uint32_t places;
};

namespace fixed {

__extension__ using Wide = unsigned __int128;

inline constexpr int kMantissaBits = 52;
inline constexpr int kExponentBias = 1075;
inline constexpr int kFractionBits = 64;
inline constexpr int kWholeBits = 31;
inline constexpr std::size_t kMostExactPlaces = 9;

inline constexpr auto kPowersOfTen = [] {
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
inline std::optional<BinaryParts> binaryParts(double value) {
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
inline FixedNumber rounded(BinaryParts number, std::size_t count) {
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
inline constexpr auto kPairs = [] {
  std::array<char, 200> digits{};
  for (std::size_t i = 0; i < 100; ++i) {
    digits[2 * i] = static_cast<char>('0' + i / 10);
    digits[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return digits;
}();

/// Writes the digits of a number below 100 in front of `at`.
inline void writePair(std::uint32_t number, char*& at) {
  at -= 2;
  std::memcpy(at, &kPairs[std::size_t{2} * number], 2);
}
/// Writes the digit of a number below 10 in front of `at`.
inline void writeDigit(std::uint32_t number, char*& at) { *--at = static_cast<char>('0' + number); }

/// Takes the last two digits off a number and writes them in front of `at`.
inline void takePair(std::uint32_t& number, char*& at) {
  writePair(number % 100, at);
  number /= 100;
}

}  // namespace fixed

/// A finite, non-negative number with `count` places, rounded half to even. Nothing for a number or
/// a count of places that this way cannot print exactly: numbers of 2^31 and more, those below
/// 2^-11 except 0, and more than nine places. It is part of its few callers: a call takes longer
/// than what it does.
[[nodiscard, gnu::always_inline]] inline std::optional<FixedNumber> exactFixed(double value,
                                                                               std::size_t count) {
  using namespace fixed;
  const auto parts = count <= kMostExactPlaces ? binaryParts(value) : std::nullopt;
  return parts ? std::optional(rounded(*parts, count)) : std::nullopt;
}

/// Writes it so that it ends at `end`; needs space for 11 characters and the places. Returns the
/// first character.
[[nodiscard, gnu::always_inline]] inline char* writeFixed(FixedNumber number, std::size_t count,
                                                          char* end) {
  using namespace fixed;
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

}  // namespace ppword
