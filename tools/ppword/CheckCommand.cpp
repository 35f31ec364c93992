#include <algorithm>
#include <nlohmann/json.hpp>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/TableWarnings.h"
#include "inspect/lint/Lint.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"

namespace {

struct Verdict {
  bool passes = true;
  std::vector<host::Diagnostic> findings;
};

Verdict verdictOf(const std::string& path, bool lint) {
  auto refusal = tableRefusal(path);
  // A file that cannot be read has no place to look at.
  if (lint && !(refusal && refusal->line == 0)) return {!refusal, host::lintTable(path)};
  if (refusal) return {false, {std::move(*refusal)}};
  return {true, host::tableWarnings(path)};
}

bool holdsWarning(const Verdict& verdict) {
  return std::any_of(verdict.findings.begin(), verdict.findings.end(), [](const auto& finding) {
    return finding.severity == host::Severity::Warning;
  });
}

std::string countText(const Verdict& verdict, host::Severity severity, std::string_view noun) {
  const auto count =
      std::count_if(verdict.findings.begin(), verdict.findings.end(),
                    [&](const auto& finding) { return finding.severity == severity; });
  if (count == 0) return {};
  return ", " + std::to_string(count) + ' ' + std::string(noun) + (count > 1 ? "s" : "");
}

std::string verdictText(const std::string& path, const Verdict& verdict) {
  std::string text = host::terminalSafe(path) + (verdict.passes ? ": passes" : ": refused");
  if (verdict.findings.size() > 1) text += countText(verdict, host::Severity::Error, "error");
  text += countText(verdict, host::Severity::Warning, "warning");
  return text + countText(verdict, host::Severity::Note, "note") + '\n';
}

Json verdictJson(const std::string& path, const Verdict& verdict) {
  Json json{{"file", textJson(path)}, {"passes", verdict.passes}, {"diagnostics", Json::array()}};
  for (const host::Diagnostic& finding : verdict.findings) {
    json["diagnostics"].push_back(diagnosticJson(finding));
  }
  return json;
}

}  // namespace

ExitStatus checkTables(const CheckOptions& options) {
  ExitStatus status = ExitStatus::Done;
  Json document{{"tables", Json::array()}};
  for (const std::string& path : options.tables) {
    const Verdict verdict = verdictOf(path, options.lint);
    const bool refused = !verdict.passes || (options.strict && holdsWarning(verdict));
    if (refused) status = ExitStatus::Refused;
    if (options.format == OutputFormat::ForPrograms) {
      document["tables"].push_back(verdictJson(path, verdict));
      continue;
    }
    for (const host::Diagnostic& finding : verdict.findings) reportDiagnostic(finding);
    writeOutput(verdictText(path, verdict));
  }
  if (options.format == OutputFormat::ForPrograms) writeOutput(documentText(document));
  return status;
}
