#include "language/syntax/OperationCursor.h"

#include <algorithm>

#include "language/number/DecimalPrefix.h"
#include "language/syntax/Signs.h"

namespace ppword {
namespace {

constexpr CharacterTable kOperators(kSigns);
// deliberate: no operator ends a left operand, so that results join in without precedence.
constexpr CharacterTable kLeftEndsAndOperators("/,=()+*-");
constexpr CharacterTable kRightEnds("/,*+=()-");

/// The right operand that `text` begins with: a "-" in front is its sign.
std::string_view rightOperand(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  const bool isSigned = first < text.size() && text[first] == '-';
  return text.substr(0, kRightEnds.firstIn(text, first + (isSigned ? 1 : 0)));
}

Operands operandsOf(char sign, bool hasLeft, std::string_view right) {
  if (right.empty()) return Operands::Missing;
  if (hasLeft) return Operands::Both;
  if (sign != '-') return Operands::Missing;
  return decimalPrefix(right) ? Operands::SignOfNumber : Operands::SignOfText;
}

}  // namespace

bool isComment(std::string_view line) {
  const auto holds = [line](std::string_view mark) {
    // Few lines have its first character, which is found faster.
    return line.find(mark.front()) != std::string_view::npos &&
           line.find(mark) != std::string_view::npos;
  };
  return holds("$$") || holds("PPRINT") || holds("*VORTA");
}

std::optional<double> operandNumber(std::string_view operand) {
  if (const auto number = plainDecimal(operand)) return number;
  if (kNumberCharacters.firstOtherIn(operand) < operand.size()) return std::nullopt;
  return decimalPrefix(operand);
}

std::optional<Operation> OperationCursor::next() {
  std::size_t at = kLeftEndsAndOperators.firstIn(line_, from_);
  while (at < line_.size() && !kOperators.holds(line_[at])) {
    begin_ = at + 1;
    at = kLeftEndsAndOperators.firstIn(line_, begin_);
  }
  if (at == line_.size()) return std::nullopt;
  const std::string_view before = line_.substr(from_, at - from_);
  const char sign = line_[at];
  const std::string_view right = rightOperand(line_.substr(at + 1));
  const Operands operands = operandsOf(sign, at > begin_, right);
  const Operation operation{before, begin_, at, sign, right, operands};
  from_ = operation.end();
  // What is deleted is no part of the next left operand.
  if (operands == Operands::Missing || operands == Operands::SignOfText) begin_ = from_;
  return operation;
}

}  // namespace ppword
