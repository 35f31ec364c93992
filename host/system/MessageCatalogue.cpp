#include "host/system/MessageCatalogue.h"

#include <algorithm>
#include <array>
#include <string>

namespace host {
namespace {

struct Message {
  std::string_view catalogue;
  std::string_view key;
  std::string_view text;
};

constexpr std::string_view kTable = "ManufacturingError";

constexpr std::array kMessages = {
    Message{kTable, "ERR_5000",
            "line /p1: *INSERT names no NC instruction; write «*INSERT NC_NAME»"},
    Message{kTable, "ERR_5001",
            "line /p1: a line that begins with \"*\" must be a *START_..., *END or *INSERT line"},
    Message{kTable, "ERR_5002",
            "more *END lines than *START lines in /p1 lines; remove the *END that closes nothing"},
    Message{kTable, "ERR_5003",
            "fewer *END lines than *START lines in /p1 lines; close every section with *END"},
    Message{kTable, "ERR_5004",
            "line /p1: *START_NC_COMMAND names no command; write «*START_NC_COMMAND NC_NAME»"},
    Message{
        kTable, "ERR_5005",
        "line /p1: *START_NC_INSTRUCTION names no instruction; write «*START_NC_INSTRUCTION NC_NAME»"},
    Message{kTable, "ERR_5006",
            "line /p1: *START_LIST names no parameter; write «*START_LIST MFG_NAME»"},
    Message{kTable, "ERR_5007",
            "line /p1: *START_FORMAT names no parameter; write «*START_FORMAT MFG_NAME»"},
    Message{kTable, "ERR_5008", "line /p1: unknown section; check the spelling of the *START_ keyword"},
    Message{kTable, "ERR_5009", "the PP word table cannot be opened; check its path and permissions"},
    Message{kTable, "ERR_5010", "the program's resource names no PP word table"},
    Message{kTable, "ERR_5011", "the program's setup has no resource"},
    Message{kTable, "ERR_5015", "the named PP word table is not among the PPTables folders"},
    Message{"System", "ERR_NULL_HANDLE", "a null handle was used"},
    Message{"System", "ERR_POSITION_OUT_OF_LIST", "position /p1 is outside a list of /p2 entries"},
};

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
  return filled(found->text, parameters);
}

}  // namespace host
