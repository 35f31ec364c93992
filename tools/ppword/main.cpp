#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <exception>
#include <new>

#include "host/system/EndingSignals.h"
#include "inspect/diagnostics/TableFile.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Failure.h"
#include "tools/ppword/StandardStreams.h"

namespace {

ExitStatus guardedRun(int argc, const char* const* argv) {
  try {
    return runCommandLine(argc, argv);
  } catch (const host::UnreadableTable& unreadable) {
    writeMessage(host::diagnosticText(unreadable.diagnostic, showsColours()));
    return ExitStatus::Refused;
  } catch (const std::bad_alloc&) {
    throw;
  } catch (...) {
    return reportFailure(currentFailure(), asksForJson(argc, argv));
  }
}

// Without any memory: a message cannot be put together.
ExitStatus failedWithoutMemory() noexcept {
  writeMessage("ppword: error: there is not enough memory\n");
  return ExitStatus::Internal;
}

ExitStatus run(int argc, const char* const* argv) {
  try {
    return guardedRun(argc, argv);
  } catch (const std::bad_alloc&) {
    return failedWithoutMemory();
  }
}

// Where nothing can be caught, as in a destructor of a library, lack of memory ends the run too.
[[noreturn]] void endRun() {
  host::removeNamedFiles();
  try {
    if (const std::exception_ptr error = std::current_exception()) std::rethrow_exception(error);
  } catch (const std::bad_alloc&) {
    _exit(static_cast<int>(failedWithoutMemory()));
  } catch (...) {
  }
  std::abort();
}

// The program's libraries take memory when they are loaded, where an exception ends it at once:
// what is set here before them ends the run with a message.
void prepareLibraries() {
  std::set_new_handler([] { _exit(static_cast<int>(failedWithoutMemory())); });
}
[[gnu::section(".preinit_array"), gnu::used]] void (*const beforeLibraries)() = prepareLibraries;

}  // namespace

int main(int argc, char** argv) {
  std::set_new_handler(nullptr);
  std::set_terminate(endRun);
  prepareStandardStreams();
  host::removeFilesAtSignals();
  // Messages only: numbers and characters do not depend on the locale.
  std::setlocale(LC_MESSAGES, "");
  return static_cast<int>(run(argc, argv));
}
