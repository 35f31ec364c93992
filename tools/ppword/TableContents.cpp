#include "KEPMfgPPTableTxt.h"
#include "inspect/diagnostics/TableBytes.h"
#include "tools/ppword/Contents.h"

namespace {

Lines linesOf(const KEPListValKEPString& list) {
  Lines lines;
  for (const KEPString& entry : list) lines.emplace_back(entry.View());
  return lines;
}

std::optional<std::vector<AptWord>> wordsOf(KEPMfgPPTableTxt& table) {
  KEPRawCollint kinds;
  KEPListValKEPString words;
  KEPRawCollint codes;
  if (!table.GetListOfAptWord(kinds, words) || !table.GetListOfNcCode(codes)) return std::nullopt;
  return paired(words, kinds, codes);
}

std::optional<Lines> syntaxesOf(KEPMfgPPTableTxt& table) {
  KEPListValKEPString syntaxes;
  if (!table.GetListOfSyntaxes(syntaxes)) return std::nullopt;
  return linesOf(syntaxes);
}

}  // namespace

std::vector<AptWord> paired(const KEPListValKEPString& words, const KEPRawCollint& kinds,
                            const KEPRawCollint& codes) {
  const bool asMany = codes.Size() == words.Size();
  std::vector<AptWord> entries;
  for (int i = 1; i <= words.Size(); ++i) {
    entries.push_back({std::string(words[i].View()), kinds[i],
                       asMany ? std::optional<int>(codes[i]) : std::nullopt});
  }
  return entries;
}

Contents tableContents(const std::string& path, std::string_view section) {
  const auto wanted = [section](std::string_view name) {
    return section.empty() || section == name;
  };
  KEPMfgPPTableTxt table{KEPString(path)};
  Contents contents;
  if (wanted("words")) contents.words = wordsOf(table);
  if (wanted("syntaxes")) contents.syntaxes = syntaxesOf(table);
  const auto bytes = ppword::tableBytes(path.c_str());
  if (!bytes) {
    // A query that could not read the file has found nothing; this says why.
    static_cast<void>(host::TableBytes::read(path));
    return contents;
  }
  ppword::TableEntries entries(*bytes);
  if (wanted("commands") || wanted("sequences")) contents.commands = entries.commands();
  if (wanted("lists")) contents.lists = entries.lists();
  if (wanted("formats")) contents.formats = entries.formats();
  return contents;
}
