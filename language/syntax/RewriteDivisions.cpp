#include "language/syntax/RewriteDivisions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "language/number/DecimalPrefix.h"
#include "language/syntax/CharacterTable.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr CharacterTable kOperandEnds("/,*+-=()");
constexpr CharacterSet kReference("%");
constexpr double kReciprocalThreshold = 1.0e-5;
constexpr int kReciprocalDigits = 6;

bool isOpenedByPercent(std::string_view text, std::size_t parenthesis) {
  return parenthesis > 0 && text[parenthesis - 1] == '%';
}

/// Pairs the parentheses of a text that grows, nesting counted.
class Parentheses {
 public:
  /// True when the last ")" of `text` closes a "%(" group. Reads on where it ended the last time.
  [[nodiscard]] bool lastClosesGroup(std::string_view text) {
    for (; read_ < text.size(); ++read_) {
      if (text[read_] == '(') open_.push_back(isOpenedByPercent(text, read_));
      if (text[read_] != ')') continue;
      isGroup_ = !open_.empty() && open_.back();
      if (!open_.empty()) open_.pop_back();
    }
    return isGroup_;
  }

 private:
  /// For every "(" without partner yet: whether it opens a group.
  std::vector<bool> open_;
  std::size_t read_ = 0;
  bool isGroup_ = false;
};

/// What stands in front of a "/" at the end of `text`.
std::string_view leftOperand(std::string_view text, Parentheses& parentheses) {
  std::size_t start = text.size();
  const std::size_t last = text.find_last_not_of(' ');
  // deliberate: of a group only its parentheses are looked through, not what ends an operand
  // inside.
  if (last != kNone && text[last] == ')' && parentheses.lastClosesGroup(text)) start = last;
  for (; start > 0; --start) {
    const char before = text[start - 1];
    const bool isGroup = before == '(' && isOpenedByPercent(text, start - 1);
    if (!isGroup && kOperandEnds.holds(before)) break;
  }
  return text.substr(start);
}

/// What a division by `divisor` is replaced by: "*" and the reciprocal.
std::optional<std::string> asProduct(std::string_view divisor) {
  const auto number = decimalPrefix(divisor);
  if (!number || std::fabs(*number) <= kReciprocalThreshold) return std::nullopt;
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), 1.0 / *number,
                                 std::chars_format::general, kReciprocalDigits)
                       .ptr;
  return std::string("*").append(digits.data(), end);
}

}  // namespace

void rewriteDivisions(SyntaxLine& line) {
  if (!line.holdsAny(kReference)) return;
  const std::string_view text = line.text();
  std::string& out = line.draft();
  Parentheses parentheses;
  std::size_t from = 0;
  std::size_t at = text.find('/');
  while (at != kNone && (at = text.find('/', at + 1)) != kNone) {
    out.append(text, from, at - from);
    from = at;
    if (leftOperand(out, parentheses).find('%') == kNone) continue;
    const std::size_t end = kOperandEnds.firstIn(text, at + 1);
    const auto product = asProduct(text.substr(at + 1, end - at - 1));
    if (!product) continue;
    out += *product;
    from = end;
  }
  if (from == 0) return;
  out.append(text, from);
  line.accept();
}

}  // namespace ppword
