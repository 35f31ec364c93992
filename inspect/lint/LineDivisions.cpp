#include "inspect/lint/LineDivisions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace host {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kOperandEnds = "/,*+-=()";
constexpr double kLeastDivisor = 1.0e-5;
constexpr int kReciprocalDigits = 6;

std::string reciprocalOf(std::string_view divisor) {
  const auto number = leadingNumber(divisor);
  if (!number || std::fabs(*number) <= kLeastDivisor) return {};
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), 1.0 / *number,
                                 std::chars_format::general, kReciprocalDigits);
  return {digits.data(), end.ptr};
}

/// Tells while a line is walked through whether the operand that ends here holds a reference.
class LeftOperand {
 public:
  void pass(char byte, char before) {
    // The end of an expression ends an operand, except right before the division.
    if (isBehindExpression_ && byte != ' ') isBehindExpression_ = holdsReference_ = false;
    if (byte == '(' && before == '%') {
      isInExpression_ = true;
    } else if (byte == ')' && isInExpression_) {
      isInExpression_ = false;
      isBehindExpression_ = true;
    } else if (kOperandEnds.find(byte) != kNone) {
      holdsReference_ = false;
    } else if (byte == '%') {
      holdsReference_ = true;
    }
  }
  [[nodiscard]] bool holdsReference() const { return holdsReference_; }

 private:
  bool holdsReference_ = false;
  bool isInExpression_ = false;
  bool isBehindExpression_ = false;
};

}  // namespace

void readDivisions(LineReading& reading) {
  std::string& flat = reading.flat;
  LeftOperand left;
  bool isFirst = true;
  for (std::size_t at = 0; at < flat.size(); ++at) {
    if (flat[at] == '/' && !std::exchange(isFirst, false)) {
      const std::size_t end = std::min(flat.find_first_of(kOperandEnds, at + 1), flat.size());
      LineDivision division{at, reading.text.substr(at + 1, end - at - 1), {}};
      if (left.holdsReference()) division.reciprocal = reciprocalOf(division.divisor);
      if (!division.reciprocal.empty()) {
        flat[at] = '*';
        std::fill(flat.begin() + static_cast<long>(at) + 1, flat.begin() + static_cast<long>(end),
                  kValueByte);
      }
      reading.divisions.push_back(std::move(division));
    }
    left.pass(flat[at], at > 0 ? flat[at - 1] : '\0');
  }
}

}  // namespace host
