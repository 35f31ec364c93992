#include "KEPMfgPPTableTxt.h"
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

InstructionEntry commandAt(KEPMfgPPTableTxt& table, int index) {
  InstructionEntry entry;
  KEPString name;
  if (!table.GetNameOfCommand(index, name)) return entry;
  entry.name = name.View();
  KEPListValKEPString lines;
  if (table.GetSyntaxOfCommand(index, lines)) entry.lines = linesOf(lines);
  int sequences = 0;
  if (!table.GetNumberOfSequenceForCommand(index, sequences)) return entry;
  for (int sequence = 1; sequence <= sequences; ++sequence) {
    lines.RemoveAll();
    const bool read = table.GetSyntaxOfSequenceForCommand(index, sequence, lines);
    entry.sequences.push_back(read ? std::optional<Lines>(linesOf(lines)) : std::nullopt);
  }
  return entry;
}

ListEntry listAt(KEPMfgPPTableTxt& table, int index) {
  ListEntry entry;
  KEPString name;
  if (!table.GetNameOfMultiListParameter(index, name)) return entry;
  entry.name = name.View();
  KEPListValKEPString values;
  if (table.GetValuesOfMultiListParameter(index, values)) entry.values = linesOf(values);
  return entry;
}

FormatEntry formatAt(KEPMfgPPTableTxt& table, int index) {
  FormatEntry entry;
  KEPString name;
  if (!table.GetNameOfFormatParameter(index, name)) return entry;
  entry.name = name.View();
  KEPString format;
  if (table.GetValueOfFormatParameter(index, format)) entry.format = format.View();
  return entry;
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
  // Every query scans the file, so only those that are needed are asked.
  const auto wanted = [section](std::string_view name) {
    return section.empty() || section == name;
  };
  KEPMfgPPTableTxt table{KEPString(path)};
  Contents contents;
  int count = 0;
  if (wanted("words")) contents.words = wordsOf(table);
  if (wanted("syntaxes")) contents.syntaxes = syntaxesOf(table);
  if (wanted("commands") || wanted("sequences")) table.GetNumberOfCommand(count);
  for (int i = 1; i <= count; ++i) contents.commands.push_back(commandAt(table, i));
  count = 0;
  if (wanted("lists")) table.GetNumberOfMultiListParameter(count);
  for (int i = 1; i <= count; ++i) contents.lists.push_back(listAt(table, i));
  count = 0;
  if (wanted("formats")) table.GetNumberOfFormatParameter(count);
  for (int i = 1; i <= count; ++i) contents.formats.push_back(formatAt(table, i));
  return contents;
}
