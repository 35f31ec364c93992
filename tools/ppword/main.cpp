#include <clocale>
#include <exception>
#include <new>
#include <string>

#include "System/KEPError.h"
#include "host/document/DocumentError.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "post/output/OutputFile.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/StandardStreams.h"

namespace {

ExitStatus failed(ExitStatus status, std::string_view reason) {
  writeMessage("ppword: error: " + host::terminalSafe(reason) + '\n');
  return status;
}

ExitStatus guardedRun(int argc, const char* const* argv) {
  try {
    return runCommandLine(argc, argv);
  } catch (const host::OutputError& error) {
    return failed(ExitStatus::NotWritten, error.file() + " cannot be written: " + error.reason());
  } catch (const host::DocumentError& error) {
    const bool isSaved = error.kind() == host::DocumentError::Kind::NotCertain;
    return failed(isSaved ? ExitStatus::Unconfirmed : ExitStatus::NotWritten,
                  error.file() + ' ' + error.reason());
  } catch (const KEPError& error) {
    return failed(ExitStatus::Internal, error.GetNLSMessage().View());
  } catch (const std::bad_alloc&) {
    return failed(ExitStatus::Internal, "there is not enough memory");
  } catch (const std::exception& error) {
    return failed(ExitStatus::Internal, error.what());
  } catch (...) {
    return failed(ExitStatus::Internal, "an unknown error occurred");
  }
}

}  // namespace

int main(int argc, char** argv) {
  prepareStandardStreams();
  // Messages only: numbers and characters do not depend on the locale.
  std::setlocale(LC_MESSAGES, "");
  return static_cast<int>(guardedRun(argc, argv));
}
