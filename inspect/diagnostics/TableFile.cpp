#include "inspect/diagnostics/TableFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <string_view>
#include <vector>

#include "host/system/MessageCatalogue.h"
#include "host/system/SystemReason.h"
#include "language/table/MemorySource.h"

namespace host {
namespace {

struct ReasonKey {
  int error;
  std::string_view key;
};

// The reasons of the system that have a text of their own, because its texts have one language.
constexpr ReasonKey kReasons[] = {
    {ENOENT, "REASON_ENOENT"}, {ENOTDIR, "REASON_ENOTDIR"}, {EACCES, "REASON_EACCES"},
    {EPERM, "REASON_EPERM"},   {ELOOP, "REASON_ELOOP"},     {ENAMETOOLONG, "REASON_ENAMETOOLONG"},
    {EIO, "REASON_EIO"},       {EBADF, "REASON_EBADF"},     {EMFILE, "REASON_EMFILE"},
    {ENFILE, "REASON_ENFILE"}, {ENOMEM, "REASON_ENOMEM"},   {ESTALE, "REASON_ESTALE"},
};

std::string reason(std::string_view key, const std::vector<KEPUnicodeString>& parameters = {}) {
  return std::string(messageText("System", key, parameters).View());
}

std::string reasonOf(int error) {
  const auto* const row =
      std::find_if(std::begin(kReasons), std::end(kReasons),
                   [error](const ReasonKey& each) { return each.error == error; });
  if (row != std::end(kReasons)) return reason(row->key);
  return reason("REASON_OTHER",
                {KEPUnicodeString(systemReason(error)), KEPUnicodeString(std::to_string(error))});
}

// Empty for a file that can be read.
std::string reasonAgainst(const std::string& path) {
  struct stat state {};
  if (stat(path.c_str(), &state) != 0) return reasonOf(errno);
  if (S_ISDIR(state.st_mode)) return reason("REASON_DIRECTORY");
  if (!S_ISREG(state.st_mode)) return reason("REASON_NO_FILE");
  if (static_cast<std::size_t>(state.st_size) > ppword::kMostTableBytes) {
    return reason("REASON_TOO_LARGE",
                  {KEPUnicodeString(std::to_string(ppword::kMostTableBytes >> 30U))});
  }
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return reasonOf(errno);
  char byte = 0;
  const bool readable = read(descriptor, &byte, 1) >= 0;
  const int error = errno;
  close(descriptor);
  return readable ? "" : reasonOf(error);
}

Diagnostic unreadable(const std::string& path, const std::string& why) {
  Diagnostic diagnostic;
  diagnostic.file = path;
  diagnostic.key = "ERR_5009";
  diagnostic.message = messageText("System", "TABLE_UNREADABLE", {KEPUnicodeString(why)}).View();
  return diagnostic;
}

}  // namespace

std::optional<Diagnostic> unreadableTable(const std::string& path) {
  const std::string against = reasonAgainst(path);
  if (against.empty()) return std::nullopt;
  return unreadable(path, against);
}

Diagnostic unreadableTable(const std::string& path, int error) {
  const std::string against = reasonAgainst(path);
  if (!against.empty()) return unreadable(path, against);
  return unreadable(path, error != 0 ? reasonOf(error) : reason("REASON_CHANGES"));
}

}  // namespace host
