#include <optional>
#include <string_view>

#include "inspect/explain/CommaTrail.h"
#include "inspect/explain/Explanation.h"
#include "language/syntax/Arithmetic.h"
#include "language/syntax/OperationCursor.h"
#include "language/syntax/Signs.h"

namespace host {
namespace {

using Operation = KEPMfgPPWordListener::Operation;
using Pass = KEPMfgPPWordListener::Pass;
using Source = KEPMfgPPWordListener::Source;

constexpr std::size_t kNone = std::string_view::npos;

std::string quoted(std::string_view text) { return "«" + std::string(text) + "»"; }

std::string quotedOrNothing(std::string_view text) {
  return text.empty() ? "nothing" : quoted(text);
}

/// What is odd about an expression.
void addExpressionNotes(const ExplainedReference& reference, std::vector<std::string>& notes) {
  // A line feed after the "(" takes it off the name.
  const std::string expression = quoted(reference.name.substr(reference.name.starts_with('(')));
  if (reference.isOpen) {
    notes.push_back("no \")\" ends the expression " + expression +
                    ": it goes on to the next blank, or to the end of the line; close it");
  }
  if (reference.name.find(',') != kNone) {
    notes.push_back("the expression is asked for as " + expression +
                    ": \"+\", \"-\", \"*\" and a division by a number are cut apart before; move "
                    "the computation into a design parameter");
  }
}

/// What is odd about the name of a reference.
void addNameNotes(const ExplainedReference& reference, std::vector<std::string>& notes) {
  const std::string_view name = reference.name;
  if (name.starts_with(' ') || name.ends_with(' ')) {
    notes.push_back("the blanks of " + quoted(name) +
                    " belong to the name: a type is looked for with them");
  }
  const std::size_t first = name.find_first_not_of(' ');
  const std::size_t last = name.find_last_not_of(' ');
  const std::string_view inner = first == kNone ? "" : name.substr(first, last - first + 1);
  if (inner.find('/') != kNone) {
    notes.push_back("the \"/\" is part of the name " + quoted(inner) +
                    ": the first one of a line divides nothing, and a reference is divided by a "
                    "number that is not 0, or in parentheses, (%A/%B)");
  } else if (inner.find_first_of(" =&%(\"\n") != kNone) {
    notes.push_back(
        "the name is longer than it looks: it goes on to the next comma, or to the end "
        "of the line, as " +
        quoted(inner) + "; put a comma right after the name");
  }
}

bool isCutText(const ExplainedReference& reference) {
  return reference.source != Source::NotEvaluated && reference.value &&
         reference.value->kind == KEPMfgParameterValue::kText &&
         reference.value->text.View() != *reference.text;
}

void addAnswerNotes(const ExplainedReference& reference, std::optional<char> following,
                    std::vector<std::string>& notes) {
  if (isCutText(reference)) {
    notes.emplace_back("only the first 79 characters of the text are written");
  }
  if (reference.source != Source::NotEvaluated) return;
  const std::string name = quoted(reference.name);
  if (following && ppword::kSigns.find(*following) != kNone) {
    notes.push_back("the name " + name + " is cut by the \"" + *following +
                    "\" after it: a name holds no sign");
  }
  const std::string lost =
      name + (reference.value ? " cannot be printed in its format" : " cannot be evaluated");
  notes.push_back(reference.text->empty()
                      ? lost + " and is dropped; the separators around it stay"
                      : lost + ": " + quoted(*reference.text) +
                            ", the text of MFG_UNEVALUATED_PPPARAMETER, takes its place");
}

void addReferenceNotes(ExplainedReference& reference, std::optional<CommaTrail>& trail,
                       std::vector<std::string>& notes) {
  // An operand between parentheses is reported with its operation.
  const auto following =
      trail && reference.text ? trail->characterAfter(reference) : std::optional<char>();
  const bool isExpression = reference.prefix == "%(";
  reference.isOpen = isExpression && reference.text && following != ')';
  (isExpression ? addExpressionNotes : addNameNotes)(reference, notes);
  if (reference.text) addAnswerNotes(reference, following, notes);
}

std::string cutNote(const ExplainedCut& cut) {
  const std::string what = quoted(cut.text) + " after the name " + quoted(cut.name);
  return cut.text.starts_with(')')
             ? what + " is cut off: each of its characters comes back as \")\""
             : what + " is cut off and lost";
}

/// True for an operation on numbers whose result is too large to be printed.
bool isOverflow(std::string_view text) {
  ppword::OperationCursor operations(text);
  auto operation = operations.next();
  while (operation && operation->operands != ppword::Operands::Both) operation = operations.next();
  if (!operation) return false;
  const auto left = ppword::operandNumber(text.substr(0, operation->at));
  const auto right = ppword::operandNumber(operation->right);
  return left && right && ppword::computed(operation->sign, *left, *right) > ppword::kOverflowBound;
}

std::optional<std::string> operationNote(const ExplainedOperation& ended, Pass pass) {
  // A lost sign has a note of its own.
  if (pass == Pass::RestoreSigns) return std::nullopt;
  const std::string operation = quoted(ended.operation);
  if (ended.outcome == Operation::Kept) {
    // A group is tried with each prefix; the last one reports.
    if (pass == Pass::WordGroups || pass == Pass::ExpressionGroups) return std::nullopt;
    return operation + " is not computed and stays: " +
           (pass == Pass::Evaluate
                ? "not both operands are plain numbers, such as -1.5"
                : "a side has no number, the divisor is 0, or the result is above 1e20");
  }
  if (ended.outcome == Operation::Computed) {
    if (!isOverflow(ended.operation)) return std::nullopt;
    return "the result of " + operation + " is above 1e20, the largest one, and becomes 0";
  }
  const bool lacksLeft = ppword::kSigns.find(ended.operation.front()) != kNone;
  const bool lacksRight = ppword::kSigns.find(ended.operation.back()) != kNone;
  if (lacksLeft && lacksRight) return operation + " is deleted: it has no operand";
  if (lacksRight) {
    return operation + " is deleted: nothing follows the sign; parentheses are no operands";
  }
  if (ended.operation.front() == '-') {
    return operation + " is deleted: what follows the sign is not a number";
  }
  return operation + " is deleted: nothing is before the sign; parentheses are no operands";
}

void addOwnNotes(std::optional<CommaTrail>& trail, ExplainedPass& pass) {
  for (ExplainedReference& reference : pass.references) {
    addReferenceNotes(reference, trail, pass.notes);
  }
  for (const ExplainedCut& cut : pass.cuts) pass.notes.push_back(cutNote(cut));
  for (const ExplainedOperation& operation : pass.operations) {
    if (auto note = operationNote(operation, pass.pass)) pass.notes.push_back(std::move(*note));
  }
}

void addSignNotes(const CommaTrail& trail, ExplainedPass& restored) {
  for (const CommaTrail::Sign& sign : trail.signs()) {
    if (!trail.isMoved(sign)) continue;
    const auto place = trail.placeOf(sign);
    std::string note =
        std::string("the \"") + sign.sign + "\" after " + quotedOrNothing(sign.before);
    note += place ? " is after " + quotedOrNothing(*place) + " now: it goes back to comma " +
                        std::to_string(sign.ordinal) +
                        ", and the commas in front of it have become more or fewer"
                  : " is lost: it goes back to comma " + std::to_string(sign.ordinal) +
                        ", which the line no longer has";
    restored.notes.push_back(std::move(note));
  }
}

/// What is odd about a line that was written with signs, after its evaluation.
void addEvaluationNotes(ExplainedPass& evaluated) {
  if (ppword::isComment(evaluated.line)) {
    evaluated.notes.emplace_back("a comment or a print: its signs stay, nothing is computed");
  } else if (evaluated.line.find("--") != kNone) {
    evaluated.notes.emplace_back(
        "two minus signs stay: what follows a sign is negative; write 0-%NAME");
  }
}

}  // namespace

void addNotes(ExplainedLine& line) {
  std::optional<CommaTrail> trail;
  std::string_view before;
  for (ExplainedPass& pass : line.passes) {
    addOwnNotes(trail, pass);
    if (pass.pass == Pass::MaskSigns) {
      trail.emplace(before, pass.line);
    } else if (pass.pass == Pass::RestoreSigns && trail) {
      addSignNotes(*trail, pass);
    } else if (pass.pass == Pass::Evaluate) {
      // Its signs are back: there is nothing to follow.
      if (trail && !trail->signs().empty()) addEvaluationNotes(pass);
    } else if (trail) {
      trail->follow(pass);
    }
    before = pass.line;
  }
}

}  // namespace host
