#include <string>
#include <string_view>

#include "language/syntax/Characters.h"
#include "language/syntax/LeftOperand.h"
#include "language/syntax/LineObserver.h"
#include "language/syntax/Passes.h"
#include "language/syntax/Signs.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
/// At most this much of a kept left operand is reported; it grows with each operation.
constexpr std::size_t kReportedSize = 200;

/// The end of a left operand, cut between characters.
std::string endOf(std::string_view operand) {
  if (operand.size() <= kReportedSize) return std::string(operand);
  operand.remove_prefix(operand.size() - kReportedSize);
  while (!operand.empty() && !startsCharacter(operand.front())) {
    operand.remove_prefix(1);
  }
  return "..." + std::string(operand);
}

void report(LineObserver* observer, OperationEnd end, std::string_view left,
            const Operation& operation, std::string_view result = {}) {
  if (observer == nullptr) return;
  std::string text = end == OperationEnd::Kept ? endOf(left) : std::string(left);
  (text += operation.sign) += operation.right;
  observer->operationEnded(end, withEscapedPercents(text), result);
}

/// Works out an operation with both operands.
void compute(const Operation& operation, LeftOperand& left, LineObserver* observer) {
  if (const auto result = left.computedWith(operation)) {
    report(observer, OperationEnd::Computed, left.view(), operation, *result);
    left.replace(*result);
  } else {
    report(observer, OperationEnd::Kept, left.view(), operation);
    left.keep(operation);
  }
}

void apply(const Operation& operation, LeftOperand& left, LineObserver* observer) {
  switch (operation.operands) {
    case Operands::Both:
      return compute(operation, left, observer);
    case Operands::SignOfNumber:
      return left.keep(operation);
    case Operands::SignOfText:
    case Operands::Missing:
      // deliberate: a sign without an operand, or in front of text, is deleted with what it has.
      report(observer, OperationEnd::Deleted, left.view(), operation);
      return left.replace({});
  }
}

/// Removes the blanks directly after every "-".
void closeUpNegatives(std::string& line) {
  if (line.find("- ") == kNone) return;
  char before = 0;
  std::erase_if(line, [&before](char character) {
    if (before == '-' && character == ' ') return true;
    before = character;
    return false;
  });
}

}  // namespace

// Few lines compute: apart, so that the others do not pay for its variables.
[[gnu::noinline]] void evaluateLine(SyntaxLine& line, const SignRecords& records,
                                    LineObserver* observer) {
  if (records.signs.empty() || isComment(line.text())) return;
  const std::string_view text = line.text();
  std::string& out = line.draft();
  LeftOperand left(out);
  OperationCursor operations(text);
  std::size_t from = 0;
  while (const auto operation = operations.next()) {
    left.read(*operation);
    apply(*operation, left, observer);
    from = operation->end();
  }
  out += text.substr(from);
  closeUpNegatives(out);
  line.accept();
}

}  // namespace ppword
