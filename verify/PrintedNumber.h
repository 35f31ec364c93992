#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace verify {

// A number has a sign or none, digits, one point or none, digits, and E with an exponent or none;
// digits somewhere. There are no blanks in it.

/// A number as it is written.
struct PrintedNumber {
  double value = 0.0;
  /// Half a unit of its last digit, by which the number that was printed may differ: of 1.250 it is
  /// 0.0005.
  double halfUnit = 0.0;
  bool hasExponent = false;
  /// False for a number beyond what a computer has.
  bool isInRange = true;
};

/// Reads a number of at most 15 digits without exponent from the beginning of a text. Returns how
/// long it is; 0 where the text begins otherwise, or where more follows that a number could have.
[[nodiscard]] std::size_t readShortNumber(std::string_view text, PrintedNumber& number);

/// How long the number is that a text begins with; 0 for none. What follows it may be anything.
[[nodiscard]] std::size_t lengthOfNumber(std::string_view text);

/// Reads a number; nothing for another text.
[[nodiscard]] std::optional<PrintedNumber> readNumber(std::string_view text);

}  // namespace verify
