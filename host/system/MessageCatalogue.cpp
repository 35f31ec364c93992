#include "host/system/MessageCatalogue.h"

#include <libintl.h>

#include <algorithm>
#include <array>
#include <string>

#include "host/system/Module.h"

namespace host {
namespace {

enum class Place { None, Line };

struct Message {
  const char* catalogue;
  const char* key;
  Place place;
  std::string_view text;
};

constexpr const char* kTable = "ManufacturingError";
constexpr const char* kSystem = "System";

// The texts as they stand without a translation.
constexpr std::array kMessages = {
    Message{kTable, "ERR_5000", Place::Line,
            "*INSERT names no NC instruction; write \"*INSERT NC_NAME\""},
    Message{kTable, "ERR_5001", Place::Line,
            "a line that begins with \"*\" must be a *START_..., *END or *INSERT line"},
    Message{kTable, "ERR_5002", Place::Line,
            "more *END lines than *START lines; remove the *END that closes nothing"},
    Message{kTable, "ERR_5003", Place::Line,
            "fewer *END lines than *START lines; close every block with *END"},
    Message{kTable, "ERR_5004", Place::Line,
            "*START_NC_COMMAND names no command; write \"*START_NC_COMMAND NC_NAME\""},
    Message{kTable, "ERR_5005", Place::Line,
            "*START_NC_INSTRUCTION names no instruction; write \"*START_NC_INSTRUCTION NC_NAME\""},
    Message{kTable, "ERR_5006", Place::Line,
            "*START_LIST names no parameter; write \"*START_LIST MFG_NAME\""},
    Message{kTable, "ERR_5007", Place::Line,
            "*START_FORMAT names no parameter; write \"*START_FORMAT MFG_NAME\""},
    Message{kTable, "ERR_5008", Place::Line,
            "no block begins like this; check the spelling of the *START_ keyword"},
    Message{kTable, "ERR_5009", Place::None,
            "the PP word table cannot be opened; check its path and permissions"},
    Message{
        kTable, "ERR_5010", Place::None,
        "the resource of the program's setup names no PP word table; set it to the file name of "
        "one"},
    Message{kTable, "ERR_5011", Place::None,
            "the program's setup has no resource; assign a machine to it"},
    Message{kTable, "ERR_5015", Place::None,
            "the PP word table that the program's resource names is in none of the PPTables "
            "folders; put the file there or correct its name, small and capital letters count"},
    Message{kSystem, "ERR_NULL_HANDLE", Place::None, "a null handle was used"},
    Message{kSystem, "ERR_POSITION_OUT_OF_LIST", Place::None,
            "position /p1 is outside a list of /p2 entries"},
    Message{kSystem, "AT_LINE", Place::None, "line /p1: "},
    Message{kSystem, "TABLE_UNREADABLE", Place::None, "the PP word table cannot be opened: /p1"},
    Message{kSystem, "REASON_ENOENT", Place::None, "No such file or directory"},
    Message{kSystem, "REASON_ENOTDIR", Place::None, "Not a directory"},
    Message{kSystem, "REASON_EACCES", Place::None, "Permission denied"},
    Message{kSystem, "REASON_EPERM", Place::None, "Operation not permitted"},
    Message{kSystem, "REASON_ELOOP", Place::None, "Too many levels of symbolic links"},
    Message{kSystem, "REASON_ENAMETOOLONG", Place::None, "File name too long"},
    Message{kSystem, "REASON_EIO", Place::None, "Input/output error"},
    Message{kSystem, "REASON_EBADF", Place::None, "Bad file descriptor"},
    Message{kSystem, "REASON_EMFILE", Place::None, "Too many open files"},
    Message{kSystem, "REASON_ENFILE", Place::None, "Too many open files in system"},
    Message{kSystem, "REASON_ENOMEM", Place::None, "Cannot allocate memory"},
    Message{kSystem, "REASON_ESTALE", Place::None, "Stale file handle"},
    Message{kSystem, "REASON_OTHER", Place::None, "/p1"},
    Message{kSystem, "REASON_DIRECTORY", Place::None, "it is a directory"},
    Message{kSystem, "REASON_NO_FILE", Place::None, "it is not a regular file"},
    Message{kSystem, "REASON_TOO_LARGE", Place::None, "it is larger than /p1 GiB"},
    Message{kSystem, "REASON_CHANGES", Place::None, "it changes while it is read"},
    Message{kSystem, "HINT_MEANT", Place::None, "; did you mean /p1?"},
    Message{kSystem, "HINT_TAB", Place::None, "; a blank must precede the name, not a tab"},
    Message{kSystem, "HINT_COUNTED", Place::None, " (counted to line /p1, the end of the table)"},
};

// The translations lie beside the library that this code is part of.
bool bindCatalogues() {
  const std::string directory =
      (defaultModulePath().parent_path() / PPWORD_LOCALE_FROM_LIBRARY).lexically_normal();
  for (const char* const catalogue : {kTable, kSystem}) {
    bindtextdomain(catalogue, directory.c_str());
    bind_textdomain_codeset(catalogue, "UTF-8");
  }
  return true;
}

std::string_view textOf(const Message& message) {
  [[maybe_unused]] static const bool bound = bindCatalogues();
  const char* const translated = dgettext(message.catalogue, message.key);
  return translated == message.key ? message.text : translated;
}

std::string filled(std::string_view text, const std::vector<KEPUnicodeString>& parameters) {
  std::string result(text);
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const std::string mark = "/p" + std::to_string(i + 1);
    const std::size_t place = result.find(mark);
    if (place != std::string::npos) result.replace(place, mark.size(), parameters[i].View());
  }
  return result;
}

}  // namespace

KEPUnicodeString messageText(std::string_view catalogue, std::string_view key,
                             const std::vector<KEPUnicodeString>& parameters) {
  const auto* const found = std::find_if(kMessages.begin(), kMessages.end(), [&](const auto& m) {
    return m.catalogue == catalogue && m.key == key;
  });
  if (found == kMessages.end()) return KEPUnicodeString(key);
  const bool placed = found->place == Place::Line && !parameters.empty();
  const std::string place(placed ? messageText(kSystem, "AT_LINE", parameters).View() : "");
  return place + filled(textOf(*found), parameters);
}

std::vector<std::string_view> messageKeys(std::string_view catalogue) {
  std::vector<std::string_view> keys;
  for (const Message& message : kMessages) {
    if (message.catalogue == catalogue) keys.emplace_back(message.key);
  }
  return keys;
}

}  // namespace host
