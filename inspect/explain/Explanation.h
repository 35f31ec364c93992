#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Manufacturing/KEPMfgPPWordListener.h"

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
  /// The format of the type.
  std::optional<std::string> format;
  KEPMfgPPWordListener::Source source = KEPMfgPPWordListener::Source::Nobody;
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

/// A line after a pass, and what the pass did. Notes tell in words what a reader of the syntax
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

}  // namespace host
