#include <clocale>
#include <new>

#include "tools/ppword/Commands.h"
#include "tools/ppword/Failure.h"
#include "tools/ppword/StandardStreams.h"

namespace {

ExitStatus guardedRun(int argc, const char* const* argv) {
  try {
    return runCommandLine(argc, argv);
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
  // Messages only: numbers and characters do not depend on the locale.
  std::setlocale(LC_MESSAGES, "");
  return static_cast<int>(guardedRun(argc, argv));
}
