#include "tools/ppword/Refusal.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "KEPMfgPPTableTxt.h"
#include "System/KEPError.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/TableErrorPlace.h"
#include "inspect/diagnostics/TableFile.h"
#include "inspect/diagnostics/TableWarnings.h"
#include "post/text/SpellingSuggestion.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/StandardStreams.h"

std::string suggestion(std::string_view word, std::span<const std::string_view> candidates) {
  const std::string_view meant = host::nearest(word, candidates);
  return meant.empty() ? "" : "; did you mean '" + std::string(meant) + "'?";
}

void warnOfNoBlock(const std::string& table) {
  for (const host::Diagnostic& warning : host::tableWarnings(table)) {
    if (warning.key == "no-section") reportDiagnostic(warning);
  }
}

void requireSection(const std::string& section, std::span<const std::string_view> sections) {
  if (std::find(sections.begin(), sections.end(), section) != sections.end()) return;
  throw UsageError{"there is no section '" + section + "'" + suggestion(section, sections)};
}

void requireOneTable(const std::string& option, const std::string& argument) {
  if (option.empty() || argument.empty()) return;
  throw UsageError{"the table is named twice, with -t and as '" + argument + "'"};
}

void reportDiagnostic(const host::Diagnostic& diagnostic) {
  writeMessage(host::diagnosticText(diagnostic, showsColours()));
}

void warn(const std::string& file, std::string_view key, std::string message) {
  host::Diagnostic warning;
  warning.severity = host::Severity::Warning;
  warning.file = file;
  warning.key = key;
  warning.message = std::move(message);
  reportDiagnostic(warning);
}

KEPVar<host::Document> openDocumentFile(const std::string& path) {
  KEPVar<host::Document> document = host::openDocument(path);
  if (document->NeedsUpgrade()) {
    warn(path, "old-version",
         "the document has an older version; upgrade it with 'ppword document upgrade'");
  }
  return document;
}

host::Diagnostic fileDiagnostic(const std::string& file, const std::string& message) {
  host::Diagnostic diagnostic;
  diagnostic.file = file;
  diagnostic.message = message;
  return diagnostic;
}

host::Diagnostic documentDiagnostic(const host::DocumentError& error) {
  return fileDiagnostic(error.file(), error.reason());
}

std::optional<host::Diagnostic> tableRefusal(const std::string& path) {
  if (auto unreadable = host::unreadableTable(path)) return unreadable;
  KEPMfgPPTableTxt reader{KEPString(path)};
  if (KEPSucceeded(reader.CheckFileSyntax())) return std::nullopt;
  return host::tableError(path, *KEPError::KEPGetLastError());
}

ExitStatus refuseTable(const host::Diagnostic& refusal, OutputFormat format) {
  if (format == OutputFormat::ForPrograms) {
    writeOutput(documentText({{"diagnostics", Json::array({diagnosticJson(refusal)})}}));
  } else {
    reportDiagnostic(refusal);
  }
  return ExitStatus::Refused;
}

void loadTable(host::Document& document, const std::string& path) {
  if (auto unreadable = host::unreadableTable(path)) throw Refusal{std::move(*unreadable)};
  if (KEPSucceeded(document.ppWordContainer()->LoadPPWordTable(KEPUnicodeString(path)))) return;
  throw Refusal{host::tableError(path, *KEPError::KEPGetLastError())};
}
