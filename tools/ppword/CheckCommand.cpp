#include "tools/ppword/CheckCommand.h"

#include <nlohmann/json.hpp>

#include "host/diagnostics/DiagnosticText.h"
#include "host/diagnostics/FormatProbe.h"
#include "host/diagnostics/TableWarnings.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/TableCheck.h"

namespace {

struct Verdict {
  bool passes = true;
  std::vector<host::Diagnostic> findings;
};

Verdict verdictOf(const std::string& path) {
  if (auto refusal = tableRefusal(path)) return {false, {std::move(*refusal)}};
  const host::FormatProbe probe;
  return {true, host::tableWarnings(
                    path, [&probe](std::string_view format) { return probe.canPrint(format); })};
}

std::string verdictText(const std::string& path, const Verdict& verdict) {
  std::string text = host::terminalSafe(path) + (verdict.passes ? ": passes" : ": refused");
  const std::size_t warnings = verdict.passes ? verdict.findings.size() : 0;
  if (warnings > 0)
    text += ", " + std::to_string(warnings) + " warning" + (warnings > 1 ? "s" : "");
  return text + '\n';
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
    const Verdict verdict = verdictOf(path);
    const bool refused = !verdict.passes || (options.strict && !verdict.findings.empty());
    if (refused) status = worse(status, ExitStatus::Refused);
    if (options.format == OutputFormat::Json) {
      document["tables"].push_back(verdictJson(path, verdict));
      continue;
    }
    for (const host::Diagnostic& finding : verdict.findings) tell(finding);
    writeOutput(verdictText(path, verdict));
  }
  if (options.format == OutputFormat::Json) writeOutput(documentText(document));
  return status;
}
