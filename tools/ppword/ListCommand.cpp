#include <algorithm>
#include <filesystem>
#include <iterator>

#include "tools/ppword/Commands.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/ParameterList.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"

namespace {

constexpr std::string_view kParameters = "parameters";

// What is to be listed: of a single name, one of the sections is meant with --default, and the
// parameters of the catalogue when there is no such file.
struct ListSubject {
  std::string table;
  std::string section;
};

ListSubject subjectOf(const ListOptions& options) {
  const std::string& first = options.firstName;
  const bool namesTable = !options.table.empty() || !options.secondName.empty();
  if (options.ofDefaultCatalogue) {
    if (namesTable) throw UsageError{"--default takes no table"};
    return {"", first};
  }
  if (!options.secondName.empty()) requireOneTable(options.table, first);
  if (!options.table.empty()) return {options.table, first};
  const bool isAlone =
      !namesTable && first == kParameters && !std::filesystem::is_regular_file(first);
  if (isAlone) return {"", first};
  // Only parameters are those of an instruction.
  const bool isOfOne = options.instruction.has_value() && options.secondName.empty();
  if (isOfOne) return {first, std::string(kParameters)};
  if (first.empty()) throw UsageError{"TABLE is required"};
  return {first, options.secondName};
}

void requireSectionOf(const std::string& section) {
  std::vector<std::string_view> sections(kTableSections.begin(), kTableSections.end());
  sections.push_back(kParameters);
  if (!section.empty()) requireSection(section, sections);
}

ExitStatus refuseUnknown(const std::string& instruction, const Contents& contents) {
  std::vector<std::string_view> names;
  for (const InstructionEntry& entry : contents.commands) {
    if (entry.name) names.emplace_back(*entry.name);
  }
  writeMessage("ppword list: there is no NC instruction '" + instruction + "'" +
               suggestion(instruction, names) + '\n');
  return ExitStatus::Refused;
}

// The parameters of a document with the table.
ExitStatus listParameters(const std::string& table, const std::optional<std::string>& instruction,
                          OutputFormat format) {
  const KEPVar<host::Document> document = host::newDocument();
  if (!table.empty()) loadTable(*document, table);
  const Contents contents = documentContents(*document);
  const bool isKnown =
      !instruction ||
      std::any_of(contents.commands.begin(), contents.commands.end(),
                  [&](const InstructionEntry& entry) { return entry.name == *instruction; });
  if (!isKnown) return refuseUnknown(*instruction, contents);
  showParameters(parametersOf(contents, instruction), format);
  return ExitStatus::Done;
}

ExitStatus listTable(const std::string& table, const std::string& section, OutputFormat format) {
  if (const auto refusal = tableRefusal(table)) return refuseTable(*refusal, format);
  warnOfNoBlock(table);
  showContents(tableContents(table, section), section, format);
  return ExitStatus::Done;
}

}  // namespace

ExitStatus listTable(const ListOptions& options) {
  const auto& [table, section] = subjectOf(options);
  requireSectionOf(section);
  if (options.instruction && section != kParameters) {
    throw UsageError{"--of is for the section parameters"};
  }
  try {
    if (section == kParameters) return listParameters(table, options.instruction, options.format);
    if (!table.empty()) return listTable(table, section, options.format);
    showContents(documentContents(*host::newDocument()), section, options.format);
    return ExitStatus::Done;
  } catch (const Refusal& refusal) {
    return refuseTable(refusal.diagnostic, options.format);
  }
}
