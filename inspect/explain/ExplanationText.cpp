#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/explain/Explanation.h"
#include "post/text/FoldedLines.h"

namespace host {
namespace {

using Source = KEPMfgPPWordListener::Source;
using Lack = KEPMfgPPWordListener::Lack;

struct LackEntry {
  Lack lack;
  std::string_view text;
};

/// The lacks in the order of their numbers.
constexpr std::array<LackEntry, 14> kLacks{{
    {Lack::Format, "its type has no format that prints the number"},
    {Lack::Entry, "the list of its type has no entry for it"},
    {Lack::Activity, "there is no activity"},
    {Lack::Parameter,
     "neither the activity nor its tool, the assembly or the tool insert has this parameter"},
    {Lack::DesignParameter, "it is not an expression of the document's design parameters"},
    {Lack::FeedUnit,
     "neither the feed rate nor the machining feed rate of the operation is linear or angular"},
    {Lack::SpindleUnit, "neither the spindle speed nor that of the operation is angular or linear"},
    {Lack::MotionSpindle,
     "the sequential motion does not exist, or states nothing about its spindle speed"},
    {Lack::Tool, "the activity has no tool, whose hand decides"},
    {Lack::Hand, "the tool is neither right-handed nor left-handed (MFG_WAY_OF_ROT)"},
    {Lack::DwellMode,
     "neither a dwell by revolutions nor one by time is stated by the operation or its sequential "
     "motion"},
    {Lack::ToolPathType, "the activity has no tool path of a known type"},
    {Lack::Pitch, "the pitch of the helix is below 0.000001: there are no turns and no angle"},
    {Lack::Dimension, "the assembly or its insert does not state the length: it is taken as 0"},
}};

constexpr std::size_t kWidth = 21;
constexpr std::size_t kDetail = 4;
const std::string kIndent(kDetail, ' ');

std::string quoted(std::string_view text) { return "«" + terminalSafe(text) + "»"; }

std::string row(std::string_view name, const std::string& text) {
  std::string line = "  " + std::string(name);
  line.append(kWidth - std::min(kWidth - 1, line.size()), ' ');
  return line + text + '\n';
}

/// A row under a pass, folded where it does not fit.
std::string detail(std::string_view text) {
  std::string rows;
  for (const std::string& line :
       foldedLines(text, kScreenColumns - kDetail, kScreenColumns - kDetail - 2)) {
    ((rows += rows.empty() ? kIndent : kIndent + "  ") += line) += '\n';
  }
  return rows;
}

std::string notesText(const std::vector<std::string>& notes) {
  std::string text;
  for (const std::string& note : notes) text += detail("! " + terminalSafe(note));
  return text;
}

std::string typeText(const ExplainedReference& reference) {
  if (reference.type.empty()) return "no type";
  const std::string type = "type " + terminalSafe(reference.type);
  return reference.baseType.empty() ? type : type + " under " + terminalSafe(reference.baseType);
}

std::string valueText(const KEPMfgParameterValue& value) {
  constexpr std::array<std::string_view, 4> kKinds = {"value", "integer", "real", "text"};
  const bool isKnown = value.kind >= 1 && value.kind <= 3;
  const std::string kind(kKinds[isKnown ? static_cast<std::size_t>(value.kind) : 0]);
  const std::string text = plainText(value);
  return kind + ' ' + (value.kind == KEPMfgParameterValue::kText ? quoted(text) : text);
}

/// Who answered, and with what value.
std::string answerText(const ExplainedReference& reference) {
  const std::string_view kind = answerKind(reference);
  const bool isEvaluated = reference.value || reference.source != Source::NotEvaluated;
  const std::string_view lack = lackText(reference);
  const std::string why = lack.empty() ? "" : ": " + std::string(lack);
  if (kind == "evaluation") {
    if (!isEvaluated) return "no value" + why;
    const bool printsNothing = !why.empty() && reference.lack != Lack::Dimension;
    return "evaluation " + terminalSafe(reference.evaluation) +
           (printsNothing ? " with nothing to print" : "") + why;
  }
  if (kind == "expression") {
    return isEvaluated ? "expression, " + valueText(*reference.value)
                       : "expression without a value" + why;
  }
  if (reference.lack == Lack::Activity) return "no value" + why;
  return isEvaluated ? "parameter of the activity, " + valueText(*reference.value)
                     : "no parameter of that name";
}

/// The format where it matters: of numbers.
std::string formatText(const ExplainedReference& reference) {
  const bool isNumber = !reference.evaluation.empty() ||
                        (reference.value && reference.value->kind == KEPMfgParameterValue::kReal);
  if (reference.format) return isNumber ? ", format " + quoted(*reference.format) : "";
  return isNumber && reference.evaluation.empty() ? ", no format" : "";
}

std::string referenceRow(const ExplainedReference& reference) {
  std::string text = terminalSafe(referenceText(reference)) + ": ";
  if (!reference.text) text += "between parentheses, ";
  if (reference.text) text += typeText(reference) + ", ";
  text += answerText(reference);
  if (reference.text) text += formatText(reference) + ": " + quoted(*reference.text);
  return detail(text);
}

std::string passText(const ExplainedPass& pass, std::string_view before) {
  std::string text = row(KEPMfgPPWordListener::EntryOf(pass.pass).name,
                         pass.line == before ? "unchanged" : quoted(pass.line));
  for (const ExplainedReference& reference : pass.references) text += referenceRow(reference);
  for (const ExplainedOperation& ended : pass.operations) {
    if (ended.outcome != KEPMfgPPWordListener::Operation::Computed) continue;
    text += detail(quoted(ended.operation) + " is " + quoted(ended.result));
  }
  return text + notesText(pass.notes);
}

std::string lineText(const ExplainedLine& line) {
  std::string text = quoted(line.passes.front().line) + '\n';
  std::string_view before = line.passes.front().line;
  for (std::size_t i = 1; i < line.passes.size(); ++i) {
    text += passText(line.passes[i], before);
    before = line.passes[i].line;
  }
  if (line.output) text += row("output", quoted(*line.output));
  return text + notesText(line.notes);
}

std::string shortest(double value) {
  std::array<char, 32> digits;
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

}  // namespace

std::string explanationText(const Explanation& explanation) {
  std::string text;
  for (const ExplainedLine& line : explanation.lines) {
    text += (text.empty() ? "" : "\n") + lineText(line);
  }
  return text;
}

std::string referenceText(const ExplainedReference& reference) {
  const bool isExpression = reference.prefix == "%(";
  return reference.prefix.substr(0, 1) + reference.name +
         (isExpression && !reference.isOpen ? ")" : "");
}

std::string_view answerKind(const ExplainedReference& reference) {
  if (!reference.evaluation.empty()) return "evaluation";
  return reference.name.starts_with('(') ? "expression" : "parameter";
}

std::string_view lackText(const ExplainedReference& reference) {
  return reference.lack ? kLacks[static_cast<std::size_t>(*reference.lack)].text : "";
}

bool isEvaluated(const ExplainedReference& reference) {
  return reference.text ? reference.source != Source::NotEvaluated : reference.value.has_value();
}

std::string plainText(const KEPMfgParameterValue& value) {
  switch (value.kind) {
    case KEPMfgParameterValue::kInteger:
      return std::to_string(value.integer);
    case KEPMfgParameterValue::kReal:
      return shortest(value.real);
    default:
      return std::string(value.text.View());
  }
}

}  // namespace host
