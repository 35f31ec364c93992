#include <charconv>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPError.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "inspect/explain/Explanation.h"
#include "language/syntax/Characters.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/Explaining.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Reading.h"
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

// What is to be explained: the instruction is empty when a tool path names it.
struct Subject {
  std::string table;
  std::string instruction;
};

bool isFile(const std::string& name) { return std::filesystem::is_regular_file(name); }

// Of two names the first is the table; a single one is the instruction.
Subject instructionOf(const ExplainOptions& options) {
  const std::string& first = options.firstName;
  const bool isTable = !options.secondName.empty() || isFile(first);
  if (isTable) requireOneTable(options.table, first);
  if (!options.secondName.empty()) return {first, options.secondName};
  if (first.empty()) throw UsageError{"INSTRUCTION is required"};
  if (isTable) throw UsageError{"'" + first + "' is a file; write an NC instruction after it"};
  return {options.table, first};
}

// A single name is the table of what an option names.
Subject subjectOf(const ExplainOptions& options) {
  if (options.syntax.empty() && !options.place) return instructionOf(options);
  const std::string option = options.place ? "--job" : "--syntax";
  const std::string& name = options.firstName;
  const bool isInstruction = options.place && name.starts_with("NC_") && !isFile(name);
  if (isInstruction || !options.secondName.empty()) {
    throw UsageError{option + " takes no instruction"};
  }
  requireOneTable(options.table, name);
  return {name.empty() ? options.table : name, options.place ? "" : std::string(kUserSyntax)};
}

void requireSuitable(const ExplainOptions& options) {
  if (!options.place) {
    if (options.reading.empty()) return;
    throw UsageError{readingNames(ReadingScope::ListingsAndPrograms) +
                     " are for the listing of --job, " + readingNames(ReadingScope::Programs) +
                     " for its NC program"};
  }
  if (!options.syntax.empty()) throw UsageError{"--job takes no --syntax"};
  if (options.sequence) throw UsageError{"--job takes no --sequence: its element names it"};
  if (!options.values.empty()) throw UsageError{"--job takes no --set: its elements have values"};
}

KEPVar<host::Document> documentOf(const ExplainOptions& options, const std::string& table) {
  KEPVar<host::Document> document =
      options.document.empty() ? host::newDocument() : openDocumentFile(options.document);
  if (!table.empty()) loadTable(*document, table);
  return document;
}

// Why there is no explanation of a sequence of an instruction.
ExitStatus refuseSequence(const KEPIMfgSyntaxEvaluation_var& evaluation, const std::string& name,
                          int sequence) {
  const int count = host::sequenceCount(evaluation);
  if (sequence <= count) return refuse("a line of " + name + " cannot be computed");
  return refuse(name + " has no sequence " + std::to_string(sequence) + "; it has " +
                std::to_string(count));
}

void showExplanation(const std::string& name, int sequence, const host::Explanation& explanation,
                     OutputFormat format) {
  writeOutput(format == OutputFormat::ForPrograms
                  ? documentText({{"instruction", textJson(name)},
                                  {"sequence", sequence},
                                  {"lines", explainedLinesJson(explanation)}})
                  : host::explanationText(explanation));
}

ExitStatus explainInstruction(const ExplainOptions& options, const Subject& subject) {
  const std::string& name = subject.instruction;
  const int sequence = options.sequence.value_or(1);
  const KEPVar<host::Document> document = documentOf(options, subject.table);
  const auto activity = host::Activity::create("explained");
  document->ppWordContainer()->SetObjects(activity);
  for (const auto& setting : options.values) host::applySetting(setting, *document, *activity);
  if (!options.syntax.empty()) storeSyntax(options.syntax, *document);
  const auto evaluation = evaluationOf(name, *document);
  if (!evaluation) return refuseUnknown(name, *document);
  const host::Explanation explanation = host::explain(*evaluation, sequence);
  if (!explanation.isDone) return refuseSequence(evaluation, name, sequence);
  if (const auto* const unused = unusedSetting(options.values, explanation)) {
    return refuseUnused(*unused, explanation);
  }
  showExplanation(name, sequence, explanation, options.format);
  return ExitStatus::Done;
}

bool namesMoreThanLine(const ExplainOptions& options) {
  const bool namesText = !options.table.empty() || !options.document.empty() ||
                         !options.secondName.empty() || !options.syntax.empty();
  return namesText || options.place || options.sequence || !options.reading.empty() ||
         !options.values.empty();
}

// The line of a text that the map is asked for.
long mappedLine(const ExplainOptions& options) {
  if (namesMoreThanLine(options)) {
    throw UsageError{"--map takes only LINE: the map names the rest"};
  }
  const std::string& text = options.firstName;
  if (text.empty()) throw UsageError{"LINE is required: which line of the text to explain"};
  long line = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, line);
  if (error == std::errc() && rest == end && line > 0) return line;
  throw UsageError{"LINE is a whole number from 1, not '" + text + "'"};
}

ExitStatus run(const ExplainOptions& options) {
  if (!options.map.empty()) return explainMapped(options.map, mappedLine(options), options.format);
  requireSuitable(options);
  const Subject subject = subjectOf(options);
  if (!options.place) return explainInstruction(options, subject);
  ToolPathOptions toolPath = options;
  toolPath.job = options.place->file;
  toolPath.table = subject.table;
  return explainPlace(*options.place, toolPath, options.format);
}

}  // namespace

ExitStatus explainSyntax(const ExplainOptions& options) {
  try {
    return run(options);
  } catch (const Refusal& refusal) {
    return refuseTable(refusal.diagnostic, options.format);
  } catch (const host::InputError& error) {
    return refuseTable(host::inputDiagnostic(error), options.format);
  } catch (const host::DocumentError& error) {
    return refuseTable(documentDiagnostic(error), options.format);
  }
}
