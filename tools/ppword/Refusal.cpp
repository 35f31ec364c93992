#include "tools/ppword/Refusal.h"

#include <utility>

#include "System/KEPError.h"
#include "inspect/diagnostics/TableError.h"
#include "inspect/diagnostics/TableFile.h"
#include "tools/ppword/TableCheck.h"

host::Diagnostic documentDiagnostic(const host::DocumentError& error) {
  host::Diagnostic diagnostic;
  diagnostic.file = error.file();
  diagnostic.message = error.reason();
  return diagnostic;
}

void warnOfOldVersion(const host::Document& document, const std::string& path) {
  if (!document.NeedsUpgrade()) return;
  host::Diagnostic warning;
  warning.severity = host::Severity::Warning;
  warning.file = path;
  warning.key = "old-version";
  warning.message = "the document is of an older version; 'ppword document upgrade' upgrades it";
  tell(warning);
}

void loadTable(host::Document& document, const std::string& path) {
  if (auto unreadable = host::unreadableTable(path)) throw Refusal{std::move(*unreadable)};
  if (KEPSucceeded(document.ppWordContainer()->LoadPPWordTable(KEPUnicodeString(path)))) return;
  throw Refusal{host::tableError(path, *KEPError::KEPGetLastError())};
}
