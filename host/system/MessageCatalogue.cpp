#include "host/system/MessageCatalogue.h"

#include <algorithm>
#include <array>
#include <string>

namespace host {
namespace {

enum class Place { None, Line };

struct Message {
  std::string_view catalogue;
  std::string_view key;
  Place place;
  std::string_view text;
};

constexpr std::string_view kTable = "ManufacturingError";
constexpr std::string_view kLine = "line /p1: ";

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
    Message{kTable, "ERR_5010", Place::None, "the program's resource names no PP word table"},
    Message{kTable, "ERR_5011", Place::None, "the program's setup has no resource"},
    Message{kTable, "ERR_5015", Place::None,
            "the named PP word table is not among the files of the PPTables folders"},
    Message{"System", "ERR_NULL_HANDLE", Place::None, "a null handle was used"},
    Message{"System", "ERR_POSITION_OUT_OF_LIST", Place::None,
            "position /p1 is outside a list of /p2 entries"},
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
  const bool placed = found->place == Place::Line && !parameters.empty();
  return (placed ? filled(kLine, parameters) : "") + filled(found->text, parameters);
}

}  // namespace host
