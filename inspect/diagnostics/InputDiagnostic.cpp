#include "inspect/diagnostics/InputDiagnostic.h"

#include <filesystem>
#include <fstream>
#include <limits>

namespace host {
namespace {

// The line of the error, up to the byte after its excerpt.
std::string lineOf(const InputError& error) {
  std::ifstream file(error.file(), std::ios::binary);
  for (long line = 1; line < error.line() && file; ++line) {
    file.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
  }
  const auto most = static_cast<std::size_t>(error.column() + kExcerptReach) + 1;
  std::string text;
  for (char byte = 0; text.size() < most && file.get(byte) && byte != '\n';) text += byte;
  return text;
}

}  // namespace

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
    diagnostic.source = excerptOf(lineOf(error), error.column());
  }
  return diagnostic;
}

}  // namespace host
