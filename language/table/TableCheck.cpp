#include "language/table/TableCheck.h"

#include <algorithm>
#include <array>

namespace ppword {
namespace {

constexpr std::array<std::string_view, 6> kNamelessStarts = {
    "*START_MAJOR_WORDS_WITHOUT_PARAMETERS",
    "*START_MAJOR_WORDS_WITH_TEXT",
    "*START_MAJOR_WORDS_WITH_PARAMETERS",
    "*START_MINOR_WORDS",
    "*START_SYNTAXES",
    "*START_SEQUENCE"};

struct NamedStart {
  std::string_view keyword;
  std::string_view name;
  std::string_view fault;
};

constexpr std::array kNamedStarts = {NamedStart{"START_NC_COMMAND", " NC_", "ERR_5004"},
                                     NamedStart{"START_NC_INSTRUCTION", " NC_", "ERR_5005"},
                                     NamedStart{"START_LIST", " MFG_", "ERR_5006"},
                                     NamedStart{"START_FORMAT", " MFG_", "ERR_5007"}};

struct LineCounts {
  int starts = 0;
  int ends = 0;
};

std::optional<std::string_view> faultOfKeywordLine(std::string_view line, LineCounts& counts) {
  if (contains(line, "*START")) {
    ++counts.starts;
    return faultOfStartLine(line);
  }
  if (contains(line, "*END")) {
    ++counts.ends;
    return std::nullopt;
  }
  if (!contains(line, "*INSERT")) return "ERR_5001";
  if (!contains(line, " NC_")) return "ERR_5000";
  return std::nullopt;
}

}  // namespace

std::optional<TableFault> faultOfTable(TableSource& source) {
  if (!source.rewind()) return TableFault{"ERR_5009", std::nullopt};
  LineCounts counts;
  int number = 0;
  while (const auto line = source.nextLine()) {
    ++number;
    if (!line->starts_with('*')) continue;
    if (const auto fault = faultOfKeywordLine(*line, counts)) return TableFault{*fault, number};
  }
  // deliberate: only the totals are compared, not the order of the blocks
  if (counts.ends == counts.starts) return std::nullopt;
  return TableFault{counts.ends < counts.starts ? "ERR_5003" : "ERR_5002", number};
}

std::optional<std::string_view> faultOfStartLine(std::string_view line) {
  const auto holds = [line](std::string_view part) { return contains(line, part); };
  if (std::any_of(kNamelessStarts.begin(), kNamelessStarts.end(), holds)) return std::nullopt;
  for (const NamedStart& start : kNamedStarts) {
    if (!holds(start.keyword)) continue;
    if (holds(start.name)) return std::nullopt;
    return start.fault;
  }
  return "ERR_5008";
}

}  // namespace ppword
