#pragma once

#include <optional>
#include <string_view>

namespace ppword {

/// The decimal number that a text begins with, as the conversion "%le" reads it in the C locale:
/// leading white space is skipped, then sign, digits, point and exponent as far as they go;
/// whatever follows is ignored. Nothing when the text begins with no number, with "inf" or "nan",
/// or with a number too large for a double; one too small for a double is 0. A hexadecimal "0x1"
/// reads as 0.
[[nodiscard]] std::optional<double> decimalPrefix(std::string_view text);

/// The number that a text is: blanks, perhaps a "-", then digits with at most one point to the end.
/// Nothing for any other text, and for more than 15 digits; what is read is as decimalPrefix reads
/// it.
[[nodiscard]] std::optional<double> plainDecimal(std::string_view text);

}  // namespace ppword
