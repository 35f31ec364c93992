#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Manufacturing/KEPMfgPPWordListener.h"

class KEPIMfgSyntaxEvaluation;

namespace host {

/// How a reference of a syntax line was answered. A text that there is none of is empty.
struct ExplainedReference {
  /// What opens it, "&", "%(" or "%", and its name; that of an expression begins with "(".
  std::string prefix;
  std::string name;
  /// True for an expression that no ")" ends.
  bool isOpen = false;
  /// The parameter type of that name, its base type, and the class of its evaluation.
  std::string type;
  std::string baseType;
  std::string evaluation;
  /// Where no evaluation answers: the value that was found.
  std::optional<KEPMfgParameterValue> value;
  /// Why there is no value, or an empty one.
  std::optional<KEPMfgPPWordListener::Lack> lack;
  /// The format of the running generation that printed the number, otherwise that of the type.
  std::optional<std::string> format;
  KEPMfgPPWordListener::Source source = KEPMfgPPWordListener::Source::NotEvaluated;
  /// What took its place; nothing for an operand between parentheses.
  std::optional<std::string> text;
};

struct ExplainedOperation {
  KEPMfgPPWordListener::Operation outcome = KEPMfgPPWordListener::Operation::Kept;
  std::string operation;
  std::string result;
};

/// Characters after the name of a reference that the output drops.
struct ExplainedCut {
  std::string name;
  std::string text;
};

/// A line after a pass, and what the pass did. Notes say in words what a reader of the syntax
/// might not expect.
struct ExplainedPass {
  KEPMfgPPWordListener::Pass pass = KEPMfgPPWordListener::Pass::Written;
  std::string line;
  std::vector<ExplainedReference> references;
  std::vector<ExplainedCut> cuts;
  std::vector<ExplainedOperation> operations;
  std::vector<std::string> notes;
};

/// A syntax line on its way; the first pass, Pass::Written, has it as it is written. `output` is
/// the line with its continuation mark, if it was put out.
struct ExplainedLine {
  std::vector<ExplainedPass> passes;
  std::optional<std::string> output;
  std::vector<std::string> notes;
};

struct Explanation {
  /// False when not every line could be processed.
  bool isDone = false;
  std::vector<ExplainedLine> lines;
};

/// An explanation for people: every syntax line, under it the passes with the line after each, the
/// references and operations of the pass, and the notes, marked by "!".
[[nodiscard]] std::string explanationText(const Explanation& explanation);

/// A reference as a syntax writes it.
[[nodiscard]] std::string referenceText(const ExplainedReference& reference);

/// Who is asked for a reference: "evaluation", "expression" or "parameter".
[[nodiscard]] std::string_view answerKind(const ExplainedReference& reference);

/// Why the reference has no value, in words; empty when it has one or the reason is not known.
[[nodiscard]] std::string_view lackText(const ExplainedReference& reference);

/// True when the reference has a text, an operand a value.
[[nodiscard]] bool isEvaluated(const ExplainedReference& reference);

/// A number with as many digits as it needs, a text as it is.
[[nodiscard]] std::string plainText(const KEPMfgParameterValue& value);

/// Adds to a line's passes, in words, what a reader of the syntax might not expect: what was lost,
/// a name that is not the one meant, a sign that moved.
void addNotes(ExplainedLine& line);

/// Adds what a line is in the text after its passes, and says why it differs from them.
void addOutput(ExplainedLine& line, std::string_view output);

/// Instantiates a sequence (from 1) of an NC instruction, as its document is now, and reports what
/// every pass did with its lines. Listens to the module meanwhile.
[[nodiscard]] Explanation explain(KEPIMfgSyntaxEvaluation& instruction, int sequence);

}  // namespace host
