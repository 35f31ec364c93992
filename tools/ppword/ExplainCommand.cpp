#include "tools/ppword/ExplainCommand.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "ObjectSpecsModeler/KEPISpecAttrAccess.h"
#include "System/KEPError.h"
#include "inspect/diagnostics/DiagnosticText.h"
#include "inspect/explain/Explain.h"
#include "inspect/explain/ExplanationText.h"
#include "post/text/SpellingSuggestion.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/ExplanationJson.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/TableCheck.h"

namespace {

constexpr std::string_view kUserSyntax = "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX";

// Makes the lines given on the command line the user's own syntax; gives the name that it has.
std::string storeSyntax(const Lines& given, host::Document& document) {
  KEPListValKEPUnicodeString lines;
  for (const std::string& line : given) lines.Append(KEPUnicodeString(line));
  document.ppWordContainer()->SetUserSyntax(lines[1]);
  KEPISpecObject_var type;
  document.ppWordContainer()->GetPPWord(type, kUserSyntax);
  KEPISpecAttrAccess_var(type)->SetList("Syntaxe", lines);
  return std::string(kUserSyntax);
}

KEPIMfgSyntaxEvaluation_var evaluationOf(const std::string& name, const host::Document& document) {
  KEPIMfgSyntaxEvaluation_var evaluation;
  try {
    document.ppWordContainer()->GetSyntaxEvaluation(evaluation, KEPUnicodeString(name));
  } catch (const KEPErrorNullHandle&) {
    // How the container answers for a sequential motion of an instruction that it does not have.
  }
  return evaluation;
}

ExitStatus refuse(const std::string& why) {
  writeMessage("ppword explain: " + host::terminalSafe(why) + '\n');
  return ExitStatus::Refused;
}

ExitStatus refuseUnknown(const std::string& name, const host::Document& document) {
  std::vector<std::string> names;
  for (const InstructionEntry& entry : documentContents(document).commands) {
    if (entry.name) names.push_back(*entry.name);
  }
  const std::vector<std::string_view> candidates(names.begin(), names.end());
  const std::string_view meant = host::nearest(name, candidates);
  return refuse("there is no NC instruction '" + name + "'" +
                (meant.empty() ? "" : "; did you mean '" + std::string(meant) + "'?"));
}

ExitStatus run(const ExplainOptions& options) {
  const KEPVar<host::Document> document = host::newDocument();
  if (!options.table.empty()) loadTable(*document, options.table);
  const auto activity = host::Activity::create("explained");
  document->ppWordContainer()->SetObjects(activity);
  for (const auto& setting : options.values) host::applySetting(setting, *document, *activity);
  const std::string name =
      options.syntax.empty() ? options.instruction : storeSyntax(options.syntax, *document);
  const auto evaluation = evaluationOf(name, *document);
  if (!evaluation) return refuseUnknown(name, *document);
  const host::Explanation explanation = host::explain(*evaluation, options.sequence);
  if (!explanation.isDone) {
    return refuse(name + " has no sequence " + std::to_string(options.sequence));
  }
  writeOutput(options.format == OutputFormat::Json
                  ? documentText(explanationJson(name, options.sequence, explanation))
                  : host::explanationText(explanation));
  return ExitStatus::Done;
}

}  // namespace

ExitStatus explainSyntax(const ExplainOptions& options) {
  try {
    return run(options);
  } catch (const Refusal& refusal) {
    return refuseTable(refusal.diagnostic, options.format);
  }
}
