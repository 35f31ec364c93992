#include <array>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPError.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/explain/Explanation.h"
#include "language/syntax/Characters.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"

namespace {

constexpr std::string_view kUserSyntax = "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX";

// Stores the lines given on the command line as the user's own syntax.
void storeSyntax(const Lines& given, host::Document& document) {
  KEPListValKEPUnicodeString lines;
  for (const std::string& line : given) lines.Append(KEPUnicodeString(line));
  document.ppWordContainer()->SetUserSyntax(lines[1]);
  KEPISpecObject_var type;
  document.ppWordContainer()->GetPPWord(type, kUserSyntax);
  KEPISpecAttrAccess_var(type)->SetList("Syntaxe", lines);
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

Json nullableJson(std::string_view text) { return text.empty() ? Json() : textJson(text); }

template <class Text>
Json optionalJson(const std::optional<Text>& text) {
  return text ? textJson(*text) : Json();
}

Json notesJson(const std::vector<std::string>& notes) {
  Json array = Json::array();
  for (const std::string& note : notes) array.push_back(textJson(note));
  return array;
}

Json valueJson(const std::optional<KEPMfgParameterValue>& value) {
  if (!value) return {};
  switch (value->kind) {
    case KEPMfgParameterValue::kInteger:
      return value->integer;
    case KEPMfgParameterValue::kReal:
      return value->real;
    default:
      return textJson(value->text);
  }
}

Json referenceJson(const host::ExplainedReference& reference) {
  return {{"reference", textJson(host::referenceText(reference))},
          {"type", nullableJson(reference.type)},
          {"baseType", nullableJson(reference.baseType)},
          {"asked", std::string(host::answerKind(reference))},
          {"evaluated", host::isEvaluated(reference)},
          {"evaluation", nullableJson(reference.evaluation)},
          {"value", valueJson(reference.value)},
          {"format", optionalJson(reference.format)},
          {"text", optionalJson(reference.text)}};
}

Json operationJson(const host::ExplainedOperation& ended) {
  constexpr std::array<const char*, 3> kOutcomes = {"computed", "kept", "deleted"};
  return {{"operation", textJson(ended.operation)},
          {"outcome", kOutcomes[static_cast<std::size_t>(ended.outcome)]},
          {"result", nullableJson(ended.result)}};
}

template <class Items>
Json arrayJson(const Items& items, Json (*toJson)(const typename Items::value_type&)) {
  Json array = Json::array();
  for (const auto& item : items) array.push_back(toJson(item));
  return array;
}

Json passJson(const host::ExplainedPass& pass) {
  return {{"pass", KEPMfgPPWordListener::EntryOf(pass.pass).name},
          {"line", textJson(pass.line)},
          {"references", arrayJson(pass.references, referenceJson)},
          {"operations", arrayJson(pass.operations, operationJson)},
          {"notes", notesJson(pass.notes)}};
}

Json lineJson(const host::ExplainedLine& line) {
  return {{"passes", arrayJson(line.passes, passJson)},
          {"output", optionalJson(line.output)},
          {"notes", notesJson(line.notes)}};
}

Json explanationJson(std::string_view instruction, int sequence,
                     const host::Explanation& explanation) {
  return {{"instruction", textJson(instruction)},
          {"sequence", sequence},
          {"lines", arrayJson(explanation.lines, lineJson)}};
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
  return refuse("there is no NC instruction '" + name + "'" + suggestion(name, candidates));
}

template <class Visit>
void visitReferences(const host::Explanation& explanation, Visit visit) {
  for (const host::ExplainedLine& line : explanation.lines) {
    for (const host::ExplainedPass& pass : line.passes) {
      for (const host::ExplainedReference& reference : pass.references) visit(reference);
    }
  }
}

std::string_view nameOf(const host::ExplainedReference& reference) {
  return ppword::withoutBlanks(reference.name);
}

// The first value whose name is in no reference; null when all are used. A name can be a part of
// what is looked up: a design parameter of an expression, or the second one of %A/%B.
const host::ValueSetting* unusedSetting(const std::vector<host::ValueSetting>& values,
                                        const host::Explanation& explanation) {
  for (const host::ValueSetting& setting : values) {
    bool isUsed = false;
    visitReferences(explanation, [&](const host::ExplainedReference& reference) {
      isUsed = isUsed || nameOf(reference).find(setting.name) != std::string_view::npos;
    });
    if (!isUsed) return &setting;
  }
  return nullptr;
}

ExitStatus refuseUnused(const host::ValueSetting& setting, const host::Explanation& explanation) {
  std::vector<std::string_view> names;
  visitReferences(explanation, [&](const host::ExplainedReference& reference) {
    names.push_back(nameOf(reference));
  });
  return refuse("--set: no reference of these lines has the name '" + setting.name + "'" +
                suggestion(setting.name, names));
}

// What is to be explained. Of two names the first is the table; a single one is the table only of
// lines.
struct Subject {
  std::string table;
  std::string instruction;
};

Subject subjectOf(const ExplainOptions& options) {
  if (!options.syntax.empty()) {
    if (!options.instruction.empty()) throw UsageError{"--syntax takes no instruction"};
    return {options.table, std::string(kUserSyntax)};
  }
  if (!options.instruction.empty()) return {options.table, options.instruction};
  if (options.table.empty()) throw UsageError{"INSTRUCTION is required"};
  if (std::filesystem::is_regular_file(options.table)) {
    throw UsageError{"'" + options.table + "' is a file; write an NC instruction after it"};
  }
  return {"", options.table};
}

ExitStatus run(const ExplainOptions& options) {
  const Subject subject = subjectOf(options);
  const std::string& name = subject.instruction;
  const KEPVar<host::Document> document = host::newDocument();
  if (!subject.table.empty()) loadTable(*document, subject.table);
  const auto activity = host::Activity::create("explained");
  document->ppWordContainer()->SetObjects(activity);
  for (const auto& setting : options.values) host::applySetting(setting, *document, *activity);
  if (!options.syntax.empty()) storeSyntax(options.syntax, *document);
  const auto evaluation = evaluationOf(name, *document);
  if (!evaluation) return refuseUnknown(name, *document);
  const host::Explanation explanation = host::explain(*evaluation, options.sequence);
  if (!explanation.isDone) {
    const int count = host::sequenceCount(evaluation);
    return refuse(options.sequence > count
                      ? name + " has no sequence " + std::to_string(options.sequence) +
                            "; it has " + std::to_string(count)
                      : "a line of " + name + " cannot be computed");
  }
  if (const auto* const unused = unusedSetting(options.values, explanation)) {
    return refuseUnused(*unused, explanation);
  }
  writeOutput(options.format == OutputFormat::ForPrograms
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
