#include "language/syntax/DivisionCursor.h"

#include <array>
#include <charconv>
#include <cmath>

#include "language/number/DecimalPrefix.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// Empty when nothing is divided by this text.
std::string reciprocalOf(std::string_view divisor) {
  const auto number = decimalPrefix(divisor);
  if (!number || std::fabs(*number) <= kReciprocalThreshold) return {};
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), 1.0 / *number,
                                 std::chars_format::general, kReciprocalDigits)
                       .ptr;
  return {digits.data(), end};
}

}  // namespace

std::optional<Division> DivisionCursor::next() {
  // The first "/" of a line ends its major word.
  if (at_ != kNone) at_ = line_.find('/', at_ + 1);
  if (at_ == kNone) return std::nullopt;
  const std::size_t end = kDivisionEnds.firstIn(line_, at_ + 1);
  Division division{at_, line_.substr(at_ + 1, end - at_ - 1), {}};
  if (leftOperand().find('%') != kNone) division.reciprocal = reciprocalOf(division.divisor);
  if (!division.reciprocal.empty()) {
    readParentheses(end);
    barrier_ = end;
  }
  return division;
}

bool DivisionCursor::isOpenedByPercent(std::size_t parenthesis) const noexcept {
  return parenthesis > barrier_ && line_[parenthesis - 1] == '%';
}

void DivisionCursor::readParentheses(std::size_t end) {
  for (; paired_ < end; ++paired_) {
    if (line_[paired_] == '(') open_.push_back(isOpenedByPercent(paired_));
    if (line_[paired_] != ')') continue;
    closesGroup_ = !open_.empty() && open_.back();
    if (!open_.empty()) open_.pop_back();
  }
}

std::string_view DivisionCursor::leftOperand() {
  const std::string_view text = line_.substr(barrier_, at_ - barrier_);
  std::size_t start = at_;
  const std::size_t last = text.find_last_not_of(' ');
  if (last != kNone && text[last] == ')') {
    readParentheses(at_);
    // deliberate: of a group only its parentheses are looked through, not what ends an operand
    // inside.
    if (closesGroup_) start = barrier_ + last;
  }
  for (; start > barrier_; --start) {
    const char before = line_[start - 1];
    const bool isGroup = before == '(' && isOpenedByPercent(start - 1);
    if (!isGroup && kDivisionEnds.holds(before)) break;
  }
  return line_.substr(start, at_ - start);
}

}  // namespace ppword
