#include "tools/ppword/TableCheck.h"

#include <nlohmann/json.hpp>

#include "KEPMfgPPTableTxt.h"
#include "inspect/diagnostics/DiagnosticText.h"
#include "inspect/diagnostics/TableError.h"
#include "inspect/diagnostics/TableFile.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/StandardStreams.h"

std::optional<host::Diagnostic> tableRefusal(const std::string& path) {
  if (auto unreadable = host::unreadableTable(path)) return unreadable;
  KEPMfgPPTableTxt reader{KEPString(path)};
  if (KEPSucceeded(reader.CheckFileSyntax())) return std::nullopt;
  return host::tableError(path, *KEPError::KEPGetLastError());
}

void tell(const host::Diagnostic& diagnostic) { writeMessage(host::diagnosticText(diagnostic)); }

ExitStatus refuseTable(const host::Diagnostic& refusal, OutputFormat format) {
  if (format == OutputFormat::Json) {
    writeOutput(documentText({{"diagnostics", Json::array({diagnosticJson(refusal)})}}));
  } else {
    tell(refusal);
  }
  return ExitStatus::Refused;
}
