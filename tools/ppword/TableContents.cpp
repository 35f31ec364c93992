#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "KEPMfgPPTableTxt.h"
#include "tools/ppword/Contents.h"

namespace {

// Blocks without an end overlap, and commands may insert the same lines many times: at most so many
// lines more than the table has bytes are shown.
constexpr std::size_t kMostLinesBeside = 1'000'000;

Lines linesOf(const KEPListValKEPString& list) {
  Lines lines;
  for (const KEPString& entry : list) lines.emplace_back(entry.View());
  return lines;
}

// How many lines may still be shown.
class LineBudget {
 public:
  explicit LineBudget(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    left_ = kMostLinesBeside + (error ? 0 : size);
  }

  // The list that a query fills; nothing when it fails, or when the budget is used up.
  template <class Query>
  std::optional<Lines> linesOf(Query query) {
    KEPListValKEPString list;
    if (left_ == 0 || !query(list)) return std::nullopt;
    left_ -= std::min(left_, static_cast<std::uintmax_t>(list.Size()));
    return ::linesOf(list);
  }

 private:
  std::uintmax_t left_;
};

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

InstructionEntry commandAt(KEPMfgPPTableTxt& table, int index, LineBudget& budget) {
  InstructionEntry entry;
  KEPString name;
  if (!table.GetNameOfCommand(index, name)) return entry;
  entry.name = name.View();
  entry.lines = budget.linesOf([&](auto& lines) { return table.GetSyntaxOfCommand(index, lines); });
  int sequences = 0;
  if (!table.GetNumberOfSequenceForCommand(index, sequences)) return entry;
  for (int sequence = 1; sequence <= sequences; ++sequence) {
    entry.sequences.push_back(budget.linesOf(
        [&](auto& lines) { return table.GetSyntaxOfSequenceForCommand(index, sequence, lines); }));
  }
  return entry;
}

ListEntry listAt(KEPMfgPPTableTxt& table, int index, LineBudget& budget) {
  ListEntry entry;
  KEPString name;
  if (!table.GetNameOfMultiListParameter(index, name)) return entry;
  entry.name = name.View();
  entry.values = budget.linesOf(
      [&](auto& values) { return table.GetValuesOfMultiListParameter(index, values); });
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
  // Every query scans the file, so only the needed ones are made.
  const auto wanted = [section](std::string_view name) {
    return section.empty() || section == name;
  };
  KEPMfgPPTableTxt table{KEPString(path)};
  LineBudget budget(path);
  Contents contents;
  int count = 0;
  if (wanted("words")) contents.words = wordsOf(table);
  if (wanted("syntaxes")) contents.syntaxes = syntaxesOf(table);
  if (wanted("commands") || wanted("sequences")) table.GetNumberOfCommand(count);
  for (int i = 1; i <= count; ++i) contents.commands.push_back(commandAt(table, i, budget));
  count = 0;
  if (wanted("lists")) table.GetNumberOfMultiListParameter(count);
  for (int i = 1; i <= count; ++i) contents.lists.push_back(listAt(table, i, budget));
  count = 0;
  if (wanted("formats")) table.GetNumberOfFormatParameter(count);
  for (int i = 1; i <= count; ++i) contents.formats.push_back(formatAt(table, i));
  return contents;
}
