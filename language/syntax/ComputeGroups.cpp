#include "language/syntax/ComputeGroups.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "language/number/DecimalPrefix.h"
#include "language/number/NumberFormat.h"
#include "language/syntax/Characters.h"
#include "language/syntax/EscapedPercent.h"
#include "language/syntax/Operation.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr CharacterSet kOpening("(");
constexpr std::string_view kOperators = "+-*/";
constexpr double kDivisionThreshold = 1.0e-7;

struct Operand {
  enum class Kind { Literal, Integer, Real };
  Kind kind;
  double value;
};

/// The operators of a line by where they occur last.
class Operators {
 public:
  explicit Operators(std::string_view line) {
    for (std::size_t i = 0; i < kOperators.size(); ++i) last_[i] = line.rfind(kOperators[i]);
  }
  /// The first of the list that occurs anywhere from `start` on; 0 when none does.
  [[nodiscard]] char firstFrom(std::size_t start) const {
    for (std::size_t i = 0; i < kOperators.size(); ++i) {
      // deliberate: an operator behind the group is chosen too.
      if (last_[i] != kNone && last_[i] > start) return kOperators[i];
    }
    return 0;
  }

 private:
  std::array<std::size_t, kOperators.size()> last_{};
};

std::optional<Operand> parameterOperand(std::string_view name, ParameterSource& parameters) {
  const auto number = parameters.number(name);
  if (!number) return std::nullopt;
  return Operand{number->isInteger ? Operand::Kind::Integer : Operand::Kind::Real, number->value};
}

/// The text without its first character.
std::string_view behindFirstCharacter(std::string_view text) {
  std::size_t size = 1;
  while (size < text.size() && !startsCharacter(text[size])) ++size;
  return text.substr(size);
}

std::optional<Operand> operandOf(std::string_view side, std::string_view prefix,
                                 ParameterSource& parameters) {
  if (side.find(prefix) != kNone) {
    // deliberate: the prefix may stand anywhere, the first character goes whatever it is.
    return parameterOperand(behindFirstCharacter(side), parameters);
  }
  const auto number = decimalPrefix(side);
  return number ? std::optional(Operand{Operand::Kind::Literal, *number}) : std::nullopt;
}

bool isInteger(const Operand& left, const Operand& right) {
  using Kind = Operand::Kind;
  const bool anyInteger = left.kind == Kind::Integer || right.kind == Kind::Integer;
  return anyInteger && left.kind != Kind::Real && right.kind != Kind::Real;
}

/// All digits of a number cut toward zero, whatever its size.
std::string integerText(double value) {
  std::array<char, 320> digits;
  // The sum turns -0 into 0.
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                 std::trunc(value) + 0.0, std::chars_format::fixed)
                       .ptr;
  return {digits.data(), end};
}

std::optional<std::string> resultOf(char sign, const Operand& left, const Operand& right) {
  if (sign == '/' && std::fabs(right.value) <= kDivisionThreshold) return std::nullopt;
  const double value = computed(sign, left.value, right.value);
  // deliberate: large negative results are not bounded.
  if (!std::isfinite(value) || value > kOverflowBound) return std::nullopt;
  if (isInteger(left, right)) return integerText(value);
  std::string text;
  return printNumber(kResultFormat, value, text) ? std::optional(std::move(text)) : std::nullopt;
}

/// The result of a group, parentheses included, as one operation.
std::optional<std::string> computedGroup(std::string_view group, char sign, std::string_view prefix,
                                         ParameterSource& parameters) {
  const std::string_view inner = group.substr(1, group.size() - 2);
  const std::size_t place = inner.find(sign);
  if (place == kNone) return std::nullopt;
  const auto left = operandOf(inner.substr(0, place), prefix, parameters);
  if (!left) return std::nullopt;
  const auto right = operandOf(inner.substr(place + 1), prefix, parameters);
  return right ? resultOf(sign, *left, *right) : std::nullopt;
}

void report(LineObserver& observer, std::string_view group,
            const std::optional<std::string>& result) {
  observer.operationEnded(result ? OperationEnd::Computed : OperationEnd::Kept,
                          withEscapedPercents(group), result.value_or(""));
}

}  // namespace

void computeGroups(SyntaxLine& line, std::string_view prefix, ParameterSource& parameters,
                   LineObserver* observer) {
  if (!line.holdsAny(kOpening)) return;
  const std::string_view text = line.text();
  std::size_t open = text.find('(');
  if (open == kNone) return;
  const Operators operators(text);
  std::string& out = line.draft();
  std::size_t from = 0;
  while (open != kNone) {
    const std::size_t close = text.find(')', open);
    const char sign = operators.firstFrom(open);
    if (close == kNone || sign == 0) break;
    const std::string_view group = text.substr(open, close - open + 1);
    const auto result = computedGroup(group, sign, prefix, parameters);
    if (observer != nullptr && group.find(sign) != kNone) report(*observer, group, result);
    if (result) {
      out.append(text, from, open - from).append(*result);
      from = close + 1;
    }
    open = text.find('(', close);
  }
  if (from == 0) return;
  out.append(text, from);
  line.accept();
}

}  // namespace ppword
