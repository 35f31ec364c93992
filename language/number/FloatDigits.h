#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace ppword {

/// Enough for the digits of any finite double with a precision of at most three digits.
inline constexpr std::size_t kDigitsCapacity = 1536;

/// A number in fixed notation as two whole numbers.
struct FixedNumber {
  std::uint32_t whole;
  std::uint32_t places;
};

/// A finite, non-negative number with `count` places, rounded half to even. Nothing for a number or
/// a count of places that this way cannot print exactly: numbers of 2^31 and more, those below
/// 2^-11 except 0, and more than nine places.
[[nodiscard]] std::optional<FixedNumber> exactFixed(double value, std::size_t count);

/// Writes it so that it ends at `end`; needs space for 11 characters and the places. Returns the
/// first character.
[[nodiscard]] char* writeFixed(FixedNumber number, std::size_t count, char* end);

/// The digits of a finite, non-negative number as printf prints them without sign, width and "0x":
/// `conversion` is one of e f g a, `precision` -1 for the conversion's own default, `alternate` the
/// "#" flag. The result is in `buffer`.
[[nodiscard]] std::string_view floatDigits(double value, char conversion, int precision,
                                           bool alternate, std::span<char, kDigitsCapacity> buffer);

}  // namespace ppword
