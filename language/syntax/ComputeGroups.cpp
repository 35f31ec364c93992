#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "language/number/DecimalPrefix.h"
#include "language/number/NumberFormat.h"
#include "language/syntax/Arithmetic.h"
#include "language/syntax/GroupCursor.h"
#include "language/syntax/LineObserver.h"
#include "language/syntax/ParameterSource.h"
#include "language/syntax/Passes.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {
namespace {

struct Operand {
  enum class Kind { Literal, Integer, Real };
  Kind kind;
  double value;
};

std::optional<Operand> operandOf(const GroupSide& side, ParameterSource& parameters) {
  using Kind = Operand::Kind;
  if (!side.isReference) {
    const auto literal = decimalPrefix(side.text);
    return literal ? std::optional(Operand{Kind::Literal, *literal}) : std::nullopt;
  }
  const auto number = parameters.number(side.text);
  if (!number) return std::nullopt;
  return Operand{number->isInteger ? Kind::Integer : Kind::Real, number->value};
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
  const auto value = groupValue(sign, left.value, right.value);
  if (!value) return std::nullopt;
  if (isInteger(left, right)) return integerText(*value);
  std::string text;
  return printNumber(kResultFormat, *value, text) ? std::optional(std::move(text)) : std::nullopt;
}

/// The result of a group, which takes its place.
std::optional<std::string> computedGroup(const Group& group, ParameterSource& parameters) {
  const auto left = operandOf(group.left, parameters);
  if (!left) return std::nullopt;
  const auto right = operandOf(group.right, parameters);
  return right ? resultOf(group.sign, *left, *right) : std::nullopt;
}

void report(LineObserver& observer, std::string_view group,
            const std::optional<std::string>& result) {
  observer.operationEnded(result ? OperationEnd::Computed : OperationEnd::Kept,
                          withEscapedPercents(group), result.value_or(""));
}

}  // namespace

void computeGroups(SyntaxLine& line, std::string_view prefix, ParameterSource& parameters,
                   LineObserver* observer) {
  if (!line.mayHoldGroups()) return;
  const std::string_view text = line.text();
  GroupCursor groups(text, prefix);
  std::string& out = line.draft();
  std::size_t from = 0;
  while (const auto group = groups.next()) {
    const auto result = computedGroup(*group, parameters);
    if (observer != nullptr) {
      report(*observer, text.substr(group->open, group->close - group->open + 1), result);
    }
    if (!result) continue;
    out.append(text, from, group->open - from).append(*result);
    from = group->close + 1;
  }
  if (from == 0) return;
  out.append(text, from);
  line.accept();
}

bool holdsGroups(SyntaxLine& line) {
  return line.mayHoldGroups() && GroupCursor(line.text(), "%").next();
}

}  // namespace ppword
