#include "inspect/diagnostics/InputDiagnostic.h"

#include <filesystem>

#include "inspect/diagnostics/TableText.h"

namespace host {

Diagnostic inputDiagnostic(const InputError& error) {
  Diagnostic diagnostic;
  diagnostic.file = error.file();
  diagnostic.message = error.message();
  diagnostic.line = error.line();
  diagnostic.column = error.column();
  std::error_code none;
  // A pipe or a device cannot be read again.
  const bool again = std::filesystem::is_regular_file(error.file(), none);
  if (again && error.line() > 0 && error.column() > 0) {
    diagnostic.source = excerptAt(error.file(), error.line(), error.column());
  }
  return diagnostic;
}

}  // namespace host
