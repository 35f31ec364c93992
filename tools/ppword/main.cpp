#include <clocale>
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
    // Without memory for anything else.
    writeMessage("ppword: error: there is not enough memory\n");
    return ExitStatus::Internal;
  } catch (...) {
    return reportFailure(currentFailure(), asksForJson(argc, argv));
  }
}

}  // namespace

int main(int argc, char** argv) {
  prepareStandardStreams();
  host::removeFilesAtSignals();
  // Messages only: numbers and characters do not depend on the locale.
  std::setlocale(LC_MESSAGES, "");
  return static_cast<int>(guardedRun(argc, argv));
}
