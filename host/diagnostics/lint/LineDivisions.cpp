#include "host/diagnostics/lint/LineDivisions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

namespace host {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kOperandEnds = "/,*+-=()";
constexpr double kLeastDivisor = 1.0e-5;
constexpr int kReciprocalDigits = 6;

/// The number that a text begins with.
std::optional<double> numberOf(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.empty() || std::string_view("0123456789.").find(text.front()) == kNone) {
    return std::nullopt;
  }
  double number = 0.0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

std::string reciprocalOf(std::string_view divisor) {
  const auto number = numberOf(divisor);
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
