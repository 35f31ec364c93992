#include "inspect/diagnostics/TableFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "host/system/MessageCatalogue.h"
#include "host/system/SystemReason.h"
#include "language/table/MemorySource.h"

namespace host {
namespace {

// Empty for a file that can be read.
std::string reasonAgainst(const std::string& path) {
  struct stat state {};
  if (stat(path.c_str(), &state) != 0) return systemReason(errno);
  if (S_ISDIR(state.st_mode)) return "it is a directory";
  if (!S_ISREG(state.st_mode)) return "it is not a regular file";
  if (static_cast<std::size_t>(state.st_size) > ppword::kMostTableBytes) {
    return "it is larger than " + std::to_string(ppword::kMostTableBytes >> 30U) + " GiB";
  }
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return systemReason(errno);
  char byte = 0;
  const bool readable = read(descriptor, &byte, 1) >= 0;
  const int error = errno;
  close(descriptor);
  return readable ? "" : systemReason(error);
}

Diagnostic unreadable(const std::string& path, const std::string& reason) {
  Diagnostic diagnostic;
  diagnostic.file = path;
  diagnostic.key = "ERR_5009";
  diagnostic.message = messageText("System", "TABLE_UNREADABLE", {KEPUnicodeString(reason)}).View();
  return diagnostic;
}

}  // namespace

std::optional<Diagnostic> unreadableTable(const std::string& path) {
  const std::string reason = reasonAgainst(path);
  if (reason.empty()) return std::nullopt;
  return unreadable(path, reason);
}

Diagnostic unreadableTable(const std::string& path, int error) {
  const std::string reason = reasonAgainst(path);
  if (!reason.empty()) return unreadable(path, reason);
  return unreadable(path, error != 0 ? systemReason(error) : "it changes while it is read");
}

}  // namespace host
