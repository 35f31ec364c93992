#include "tools/ppword/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include "post/output/OutputFile.h"
#include "tools/ppword/Commands.h"

namespace {

void putText(std::string_view text, host::OutputFile& output) {
  if (!text.empty()) output.write(text.substr(0, text.size() - 1));
}

}  // namespace

void prepareStandardStreams() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is taken: the closed one. The wrong direction makes its use an error.
    const int mode = descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY;
    if (open("/dev/null", mode) < 0) _exit(static_cast<int>(ExitStatus::Internal));
  }
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

void writeOutput(std::string_view text) {
  host::OutputFile output("-");
  putText(text, output);
  output.finish();
}

void writePartOfOutput(std::string_view text) {
  host::OutputFile output("-");
  putText(text, output);
  output.complete();
}

bool showsColours() noexcept {
  const char* const refused = std::getenv("NO_COLOR");
  if (refused != nullptr && *refused != '\0') return false;
  const char* const terminal = std::getenv("TERM");
  const bool isDumb = terminal == nullptr || std::string_view(terminal) == "dumb";
  return !isDumb && isatty(STDERR_FILENO) == 1;
}

void writeMessage(std::string_view text) noexcept {
  while (!text.empty()) {
    const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}
