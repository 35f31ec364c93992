#pragma once

#include <span>
#include <string_view>

namespace ppword {

/// Enough for the digits of any finite double with a precision of at most three digits.
inline constexpr std::size_t kDigitsCapacity = 1536;

/// The digits of a finite, non-negative number as printf prints them without sign, width and "0x":
/// `conversion` is one of e f g a, `precision` -1 for the conversion's own default, `alternate` the
/// "#" flag. The result is in `buffer`.
[[nodiscard]] std::string_view floatDigits(double value, char conversion, int precision,
                                           bool alternate, std::span<char, kDigitsCapacity> buffer);

}  // namespace ppword
