#include <array>
#include <nlohmann/json.hpp>

#include "inspect/compare/TableDifference.h"
#include "inspect/diagnostics/TableFile.h"
#include "inspect/lint/Lint.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"

namespace {

using host::TableChange;
using ChangedSection = TableChange::Section;
using What = TableChange::What;
using Side = TableChange::Side;

constexpr std::array<std::string_view, 6> kChangedSections = {"words",   "codes", "syntaxes",
                                                              "formats", "lists", "instructions"};
constexpr std::array<std::string_view, 9> kChangedWhats = {
    "entry", "code", "kind", "word", "text", "sequence", "line", "insert", "reading"};

std::string_view sectionName(ChangedSection section) {
  return kChangedSections[static_cast<std::size_t>(section)];
}

// --- The two tables

// Reads a table; returns why it cannot be compared.
std::vector<host::Diagnostic> errorsOf(const std::string& path,
                                       std::optional<host::TableBytes>& table) {
  if (auto unreadable = host::unreadableTable(path)) return {std::move(*unreadable)};
  try {
    table = host::TableBytes::read(path);
    auto refusal = tableRefusal(path);
    if (!refusal) return {};
    auto errors = host::tableErrors(*table, path);
    return errors.empty() ? std::vector{std::move(*refusal)} : errors;
  } catch (const host::UnreadableTable& unreadable) {
    return {unreadable.diagnostic};
  }
}

ExitStatus refuseTables(const std::vector<host::Diagnostic>& errors, OutputFormat format) {
  Json document{{"diagnostics", Json::array()}};
  for (const host::Diagnostic& error : errors) {
    if (format == OutputFormat::ForPrograms) {
      document["diagnostics"].push_back(diagnosticJson(error));
    } else {
      reportDiagnostic(error);
    }
  }
  if (format == OutputFormat::ForPrograms) writeOutput(documentText(document));
  return ExitStatus::Usage;
}

// --- For people

std::string quotedText(const std::optional<std::string>& text) {
  return text ? '"' + host::terminalSafe(*text) + '"' : "unreadable";
}

// What an entry is that only one of the tables has.
std::string changedEntryText(const TableChange& change, const Side& side) {
  if (change.section == ChangedSection::Words) {
    const std::string kind(kindName(side.kind));
    return kind + (side.text ? ", code " + *side.text + ',' : ", without code,");
  }
  if (change.section == ChangedSection::Instructions) return "instruction";
  if (change.section == ChangedSection::Syntaxes) return "syntax";
  return (change.section == ChangedSection::Lists ? "list " : "format ") + quotedText(side.text);
}

// A side of a change.
std::string sideText(const TableChange& change, const Side& side) {
  switch (change.what) {
    case What::Entry:
      return changedEntryText(change, side);
    case What::Code:
      return side.text.value_or("none");
    case What::Kind:
      return std::string(kindName(side.kind));
    case What::Sequence:
      return "sequence " + std::to_string(change.sequence);
    case What::Reading:
      return change.section == ChangedSection::Instructions ? "its lines cannot be read"
                                                            : "the section cannot be read";
    default:
      return quotedText(side.text);
  }
}

std::string_view prefixOf(What what) {
  if (what == What::Code) return "code ";
  return what == What::Word ? "word " : "";
}

// What is different, without the places.
std::string differenceText(const TableChange& change) {
  if (change.what == What::Insert) return "changes with " + host::terminalSafe(change.through);
  std::string text(prefixOf(change.what));
  if (change.before && change.after) {
    return text + sideText(change, *change.before) + " is now " + sideText(change, *change.after);
  }
  text += sideText(change, change.before ? *change.before : *change.after);
  if (change.what == What::Reading) return text + " in one table";
  return text + (change.before ? " only in the old table" : " only in the new table");
}

std::string placeText(const std::string& path, const Side& side) {
  const std::string file = host::terminalSafe(path);
  return side.place.line > 0 ? file + ':' + std::to_string(side.place.line) : file;
}

std::string changeText(const TableChange& change, const DiffOptions& options) {
  std::string text = "  ";
  if (!change.name.empty()) text += host::terminalSafe(change.name);
  if (change.sequence > 1 && change.what != What::Sequence)
    text += " sequence " + std::to_string(change.sequence);
  if (!change.name.empty()) text += ": ";
  ((text += differenceText(change)) += " (") +=
      change.before ? placeText(options.before, *change.before) : "";
  if (change.before && change.after) text += ", ";
  return text + (change.after ? placeText(options.after, *change.after) : "") + ")\n";
}

std::string changesText(const std::vector<TableChange>& changes, const DiffOptions& options) {
  std::string text;
  std::optional<ChangedSection> section;
  for (const TableChange& change : changes) {
    if (section != change.section) ((text += sectionName(change.section)) += ":\n");
    section = change.section;
    text += changeText(change, options);
  }
  return text;
}

// --- For programs

Json sideJson(const std::optional<Side>& side) {
  if (!side) return nullptr;
  Json json = Json::object();
  if (side->place.line > 0) json["line"] = side->place.line;
  if (side->place.line > 0) json["column"] = side->place.column;
  json["text"] = side->text ? textJson(*side->text) : Json(nullptr);
  if (side->kind > 0) json["kind"] = side->kind;
  return json;
}

Json changeJson(const TableChange& change) {
  Json json{{"section", sectionName(change.section)},
            {"what", kChangedWhats[static_cast<std::size_t>(change.what)]},
            {"name", textJson(change.name)}};
  if (change.sequence > 0) json["sequence"] = change.sequence;
  if (!change.through.empty()) json["insert"] = textJson(change.through);
  json["old"] = sideJson(change.before);
  json["new"] = sideJson(change.after);
  return json;
}

Json changesJson(const std::vector<TableChange>& changes, const DiffOptions& options) {
  Json document{{"old", textJson(options.before)},
                {"new", textJson(options.after)},
                {"same", changes.empty()},
                {"changes", Json::array()}};
  for (const TableChange& change : changes) document["changes"].push_back(changeJson(change));
  return document;
}

}  // namespace

ExitStatus diffTables(const DiffOptions& options) {
  std::optional<host::TableBytes> before;
  std::optional<host::TableBytes> after;
  std::vector<host::Diagnostic> errors = errorsOf(options.before, before);
  for (host::Diagnostic& error : errorsOf(options.after, after)) errors.push_back(std::move(error));
  if (!errors.empty()) return refuseTables(errors, options.format);
  const auto changes = host::tableChanges(*before, *after);
  writeOutput(options.format == OutputFormat::ForPrograms
                  ? documentText(changesJson(changes, options))
                  : changesText(changes, options));
  return changes.empty() ? ExitStatus::Done : ExitStatus::Refused;
}
