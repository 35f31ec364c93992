#include "language/table/TableCheck.h"

#include <algorithm>
#include <string>

#include "language/table/Keywords.h"

namespace ppword {
namespace {

constexpr const Keyword& kInsert = *keywordIn(kInsertKeyword);

bool holdsName(std::string_view line, const Keyword& keyword) {
  return contains(line, std::string(" ").append(keyword.namePrefix));
}

}  // namespace

std::optional<TableFault> faultOfTable(TableSource& source) {
  if (!source.rewind()) return TableFault{"ERR_5009", std::nullopt};
  int starts = 0;
  int ends = 0;
  int number = 0;
  while (const auto line = source.nextLine()) {
    ++number;
    if (!line->starts_with('*')) continue;
    const KeywordLine checked = checkKeywordLine(*line);
    if (checked.fault) return TableFault{*checked.fault, number};
    if (checked.kind == KeywordLine::Kind::Start) ++starts;
    if (checked.kind == KeywordLine::Kind::End) ++ends;
  }
  // deliberate: only the totals are compared, not the order of the blocks
  if (ends == starts) return std::nullopt;
  return TableFault{ends < starts ? "ERR_5003" : "ERR_5002", number};
}

KeywordLine checkKeywordLine(std::string_view line) {
  using Kind = KeywordLine::Kind;
  if (contains(line, kStartMark)) return {Kind::Start, faultOfStartLine(line)};
  if (contains(line, kEndKeyword)) return {Kind::End, std::nullopt};
  if (!contains(line, kInsertKeyword)) return {Kind::Other, "ERR_5001"};
  if (!holdsName(line, kInsert)) return {Kind::Other, kInsert.missingName};
  return {Kind::Other, std::nullopt};
}

std::optional<std::string_view> faultOfStartLine(std::string_view line) {
  const auto begins = [line](const Keyword& keyword) {
    return keyword.text.starts_with(kStartMark) && contains(line, keyword.inLine());
  };
  const auto isNameless = [](const Keyword& keyword) { return keyword.namePrefix.empty(); };
  const auto isSound = [&](const Keyword& keyword) {
    return isNameless(keyword) && begins(keyword);
  };
  if (std::any_of(kKeywords.begin(), kKeywords.end(), isSound)) return std::nullopt;
  const auto named = std::find_if(kKeywords.begin(), kKeywords.end(), begins);
  if (named == kKeywords.end()) return "ERR_5008";
  if (holdsName(line, *named)) return std::nullopt;
  return named->missingName;
}

}  // namespace ppword
