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
  text_ += operation.before.substr(0, ended);
  if (ended > 0) begin();
  text_ += operation.before.substr(ended);
}

std::optional<std::string> LeftOperand::computedWith(const Operation& operation) {
  const auto right = operandNumber(operation.right);
  const auto left = right ? number() : std::nullopt;
  return left ? resultOf(*left, operation.sign, *right) : std::nullopt;
}

void LeftOperand::replace(std::string_view by) {
  text_.resize(start_);
  begin();
  text_ += by;
}

void LeftOperand::keep(const Operation& operation) {
  text_ += operation.sign;
  text_ += operation.right;
}

std::optional<double> LeftOperand::number() {
  if (plainEnd_ == start_) number_ = plainDecimal(view());
  if (plainEnd_ == start_ && number_) {
    plainEnd_ = text_.size();
    isConverted_ = true;
  }
  plainEnd_ = kNumberCharacters.firstOtherIn(text_, plainEnd_);
  if (plainEnd_ < text_.size()) return std::nullopt;
  if (!isConverted_) number_ = decimalPrefix(view());
  // Blanks may become a number by the sign after them, anything else stays what it is.
  isConverted_ = isConverted_ || view().find_first_not_of(' ') != std::string_view::npos;
  return number_;
}

void LeftOperand::begin() {
  start_ = plainEnd_ = text_.size();
  isConverted_ = false;
}

}  // namespace ppword
