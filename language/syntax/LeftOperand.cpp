#include "language/syntax/LeftOperand.h"

#include "language/number/DecimalPrefix.h"
#include "language/number/NumberFormat.h"
#include "language/syntax/Arithmetic.h"

namespace ppword {

void LeftOperand::read(const Operation& operation) {
  const std::size_t from = operation.at - operation.before.size();
  const std::size_t ended = operation.begin > from ? operation.begin - from : 0;
  if (ended > 0) begin(text_.size() + ended);
  text_ += operation.before;
}

std::optional<std::string_view> LeftOperand::computedWith(const Operation& operation) {
  const auto left = number();
  const auto right = left ? operandNumber(operation.right) : std::nullopt;
  if (!right) return std::nullopt;
  const double value = computed(operation.sign, *left, *right);
  // deliberate: a result that is too large becomes 0; large negative ones are not bounded.
  return printed(value > kOverflowBound ? 0.0 : value);
}

std::optional<std::string_view> LeftOperand::printed(double result) {
  static const PlainFixed format = PlainFixed::parse(kResultFormat).value();
  const char* const end = format.print(result, digits_.data());
  if (end != nullptr) return std::string_view(digits_.data(), end);
  // A number with more digits.
  const bool done = printNumber(kResultFormat, result, longDigits_);
  return done ? std::optional<std::string_view>(longDigits_) : std::nullopt;
}

void LeftOperand::replace(std::string_view by) {
  text_.resize(start_);
  text_ += by;
  begin(start_);
}

void LeftOperand::keep(const Operation& operation) {
  text_ += operation.sign;
  text_ += operation.right;
}

std::optional<double> LeftOperand::number() {
  if (plainEnd_ == start_) {
    number_ = plainDecimal(view());
    isConverted_ = number_.has_value();
    if (isConverted_) {
      plainEnd_ = text_.size();
    } else if (view().find_first_not_of(' ') == std::string_view::npos) {
      // Padding before a negative number: the sign after it may make it a number.
      return std::nullopt;
    }
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
