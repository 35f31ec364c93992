#include "language/syntax/LeftOperand.h"

#include <utility>

#include "language/number/DecimalPrefix.h"
#include "language/number/NumberFormat.h"
#include "language/syntax/Arithmetic.h"

namespace ppword {
namespace {

/// The result of an operation; nothing when it cannot be printed.
std::optional<std::string> resultOf(double left, char sign, double right) {
  const double value = computed(sign, left, right);
  std::string text;
  // deliberate: a result that is too large becomes 0; large negative ones are not bounded.
  const bool done = printNumber(kResultFormat, value > kOverflowBound ? 0.0 : value, text);
  return done ? std::optional(std::move(text)) : std::nullopt;
}

}  // namespace

void LeftOperand::read(const Operation& operation) {
  const std::size_t from = operation.at - operation.before.size();
  const std::size_t ended = operation.begin > from ? operation.begin - from : 0;
  if (ended > 0) begin(text_.size() + ended);
  text_ += operation.before;
}

std::optional<std::string> LeftOperand::computedWith(const Operation& operation) {
  const auto left = number();
  const auto right = left ? operandNumber(operation.right) : std::nullopt;
  return right ? resultOf(*left, operation.sign, *right) : std::nullopt;
}

void LeftOperand::replace(std::string_view by) {
  text_.replace(start_, std::string::npos, by);
  begin(start_);
}

void LeftOperand::keep(const Operation& operation) {
  text_ += operation.sign;
  text_ += operation.right;
}

std::optional<double> LeftOperand::number() {
  if (plainEnd_ == start_) {
    // Padding before a negative number: the sign after it may make it a number.
    if (view().find_first_not_of(' ') == std::string_view::npos) return std::nullopt;
    number_ = plainDecimal(view());
    isConverted_ = number_.has_value();
    if (isConverted_) plainEnd_ = text_.size();
  }
  plainEnd_ = kNumberCharacters.firstOtherIn(text_, plainEnd_);
  if (plainEnd_ < text_.size()) return std::nullopt;
  if (!isConverted_) number_ = decimalPrefix(view());
  isConverted_ = true;
  return number_;
}

void LeftOperand::begin(std::size_t start) {
  start_ = plainEnd_ = start;
  isConverted_ = false;
}

}  // namespace ppword
