#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "language/number/PlainFixed.h"
#include "language/syntax/OperationCursor.h"

namespace ppword {

/// The left operand of the operations of a line. It ends the text that was worked out so far, and
/// grows while operations on it are kept: what was read of it is not read again, so that a line
/// costs its length.
class LeftOperand {
 public:
  /// `text`: where the line is worked out, empty.
  explicit LeftOperand(std::string& text) : text_(text) {}

  [[nodiscard]] std::string_view view() const { return std::string_view(text_).substr(start_); }

  /// Appends the text before the next operation, so that it ends in its left operand.
  void read(const Operation& operation);

  /// The result of an operation with both operands, valid until the next one; nothing when one is
  /// not a number, or the result cannot be printed.
  [[nodiscard]] std::optional<std::string_view> computedWith(const Operation& operation);

  /// Puts a result in its place, or nothing for an operation that is deleted.
  void replace(std::string_view by);

  /// Appends sign and right operand of an operation that stays.
  void keep(const Operation& operation);

 private:
  [[nodiscard]] std::optional<double> number();
  [[nodiscard]] std::optional<std::string_view> printed(double result);
  /// The next operand begins at a place of the text.
  void begin(std::size_t start);

  std::string& text_;
  std::size_t start_ = 0;
  /// Up to here it holds characters of numbers only.
  std::size_t plainEnd_ = 0;
  std::optional<double> number_;
  bool isConverted_ = false;
  /// The result that was computed last, in one of them.
  std::array<char, PlainFixed::kCapacity> digits_;
  std::string longDigits_;
};

}  // namespace ppword
