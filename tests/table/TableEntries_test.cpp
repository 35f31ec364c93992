// What is listed of a table is found in one walk; the reader's queries scan the file for each
// entry. Both must find the same in every table.

#include "language/table/TableEntries.h"

#include <gtest/gtest.h>

#include <iostream>
#include <tuple>

#include "tests/support/Mutator.h"
#include "tests/table/TableFiles.h"
#include "tests/table/TableMaker.h"

namespace ppword {

// For the comparisons and messages of the tests.
static bool operator==(const CommandEntry& left, const CommandEntry& right) {
  return std::tie(left.name, left.lines, left.sequences) ==
         std::tie(right.name, right.lines, right.sequences);
}

namespace {

using Content = std::optional<Texts>;

std::string described(const Content& content) {
  if (!content) return " unreadable";
  std::string text;
  for (const std::string& line : *content) text += " |" + line;
  return text + " |";
}

void add(Texts& entries, std::string entry, const std::optional<std::string>& name,
         const Content& content) {
  entry += name ? ' ' + *name + ':' + described(content) : " without name";
  entries.push_back(std::move(entry));
}

Texts described(std::string_view table) {
  Texts all;
  TableEntries entries(table);
  for (const CommandEntry& entry : entries.commands()) {
    add(all, "command", entry.name, entry.lines);
    for (const Content& lines : entry.sequences) add(all, "sequence", entry.name, lines);
  }
  for (const ListEntry& entry : entries.lists()) add(all, "list", entry.name, entry.values);
  for (const FormatEntry& entry : entries.formats()) {
    add(all, "format", entry.name, entry.format ? Content(Texts{*entry.format}) : std::nullopt);
  }
  return all;
}

/// The same by the queries.
class Queried {
 public:
  explicit Queried(const KEPString& path) : reader_(path) {}

  [[nodiscard]] Texts all() {
    forEach(&KEPMfgPPTableTxt::GetNumberOfCommand, &Queried::addCommand);
    forEach(&KEPMfgPPTableTxt::GetNumberOfMultiListParameter, &Queried::addList);
    forEach(&KEPMfgPPTableTxt::GetNumberOfFormatParameter, &Queried::addFormat);
    return std::move(all_);
  }

 private:
  void forEach(bool (KEPMfgPPTableTxt::*number)(int&), void (Queried::*addOne)(int)) {
    int count = 0;
    (reader_.*number)(count);
    for (int index = 1; index <= count; ++index) (this->*addOne)(index);
  }
  template <class Query>
  static Content content(Query query) {
    KEPListValKEPString list;
    return query(list) ? Content(texts(list)) : std::nullopt;
  }
  void addCommand(int index) {
    KEPString name;
    if (!reader_.GetNameOfCommand(index, name)) return add(all_, "command", {}, {});
    const std::string found(name.View());
    add(all_, "command", found,
        content([&](auto& list) { return reader_.GetSyntaxOfCommand(index, list); }));
    int sequences = 0;
    reader_.GetNumberOfSequenceForCommand(index, sequences);
    for (int i = 1; i <= sequences; ++i) {
      add(all_, "sequence", found, content([&](auto& list) {
            return reader_.GetSyntaxOfSequenceForCommand(index, i, list);
          }));
    }
  }
  void addList(int index) {
    KEPString name;
    if (!reader_.GetNameOfMultiListParameter(index, name)) return add(all_, "list", {}, {});
    add(all_, "list", std::string(name.View()),
        content([&](auto& list) { return reader_.GetValuesOfMultiListParameter(index, list); }));
  }
  void addFormat(int index) {
    KEPString name;
    if (!reader_.GetNameOfFormatParameter(index, name)) return add(all_, "format", {}, {});
    KEPString format;
    const bool isRead = reader_.GetValueOfFormatParameter(index, format);
    add(all_, "format", std::string(name.View()),
        isRead ? Content(Texts{std::string(format.View())}) : std::nullopt);
  }

  KEPMfgPPTableTxt reader_;
  Texts all_;
};

/// Tables of pieces, with names that occur twice or in others, keywords in words and names, blocks
/// in blocks, and damaged.
class HostileTables {
 public:
  explicit HostileTables(unsigned seed)
      : maker_(seed), mutator_(seed, "*STARTENDIQUMFGNC_ ,/\n\r%$") {}

  [[nodiscard]] std::string next() {
    std::string table = maker_.table();
    for (std::size_t i = maker_.below(12); i > 0; --i) addPiece(table);
    if (!table.empty() && maker_.below(2) == 0) table = mutator_.mutate(table);
    for (std::size_t i = maker_.below(6); i > 0; --i) table += "\n*END\n";
    return table;
  }

 private:
  void addPiece(std::string& table) {
    static const Texts kPieces = {"*START_NC_INSTRUCTION NC_A\nAGAIN\n*END",
                                  "*START_NC_COMMAND NC_AB\nLONGER\n*INSERT NC_A\n*END",
                                  "*START_NC_COMMAND NC_\n*START_SEQUENCE\nS1\n*END\n*END",
                                  "X*START_NC_COMMANDS NC_D\n*INSERTED NC_AB\nY*ENDED",
                                  "*START_NC_COMMAND*START_NC_INSTRUCTION NC_E\n*END",
                                  "*START_NC_COMMAND\n*START_NC_INSTRUCTION\nNC_F\n*END",
                                  "*START_NC_COMMAND MFG_L",
                                  "/*START_NC_COMMAND NC_G",
                                  "*START_LIST MFG_L2\nA,B,\n/C,,D\n/E\n*END",
                                  "*START_LIST NC_A\n*END",
                                  "*START_LIST\n*START_LIST MFG_L\nV\n*END",
                                  "*START_FORMAT MFG_F2\n/no\n%5.1f %6.2f\n*END",
                                  "*START_FORMAT MFG_F3\n*END",
                                  "*START_FORMAT X",
                                  "*START_SEQUENCE\nS1\n*END\n*START_SEQUENCE\n*INSERT NC_C\n*END",
                                  "PPRINT *END",
                                  std::string(1024, 'w'),
                                  "*START_NC_COMMAND NC_" + std::string(1020, 'n')};
    const std::size_t end = table.find('\n', maker_.below(table.size() + 1));
    const std::size_t at = end == std::string::npos ? table.size() : end + 1;
    // Rarely what is too long: no query finds anything after it.
    const std::size_t count = kPieces.size() - (maker_.below(8) == 0 ? 0 : 2);
    table.insert(at, kPieces[maker_.below(count)] + '\n');
  }

  TableMaker maker_;
  Mutator mutator_;
};

TEST(TableEntries, AreThoseOfTheQueriesInRandomTables) {
  const unsigned seed = chosenSeed();
  std::cout << "seed " << seed << '\n';
  HostileTables tables(seed);
  const TableFile file("");
  std::size_t found = 0;
  for (int round = 0; round < 500 && !testing::Test::HasFailure(); ++round) {
    const std::string table = tables.next();
    file.write(table);
    const Texts expected = Queried(file.path()).all();
    EXPECT_EQ(described(table), expected);
    found += expected.size();
    if (testing::Test::HasFailure()) std::cout << "round " << round << ":\n" << table << '\n';
  }
  EXPECT_GT(found, 1500U);
}

constexpr std::string_view kAllKinds =
    "*START_NC_INSTRUCTION NC_B\nB1\n*INSERT NC_A\n*END\n"
    "*START_NC_COMMAND NC_A\nA1\nPPRINT A  2\n*END\n"
    "*START_NC_COMMAND X\n*END\n"
    "*START_NC_INSTRUCTION NC_C\n*START_SEQUENCE\nC1\n*END\n*START_SEQUENCE\n*INSERT NC_Z\n*END\n"
    "*START_LIST MFG_IN\nV\n*END\n*END\n"
    "*START_LIST MFG_L\nON,OFF\n*END\n"
    "*START_FORMAT MFG_F\n%5.1f\n*END\n"
    "*START_FORMAT F\n%5.1f\n*END\n"
    "*START_NC_INSTRUCTION NC_A\nA3\n";

TEST(TableEntries, StandInTheOrderOfTheQueries) {
  EXPECT_EQ(
      described(kAllKinds),
      (Texts{"command NC_A: |A1 |PPRINT A  2 |", "command without name",
             "command NC_B: |B1 |A1 |PPRINT A  2 |", "command NC_C: |C1 |", "sequence NC_C: |C1 |",
             "sequence NC_C: unreadable", "command NC_A: unreadable", "list MFG_IN: |V |",
             "list MFG_L: |ON |OFF |", "format MFG_F: |%5.1f |", "format without name"}));
}

TEST(TableEntries, EmptyTableHasNone) { EXPECT_EQ(described(""), Texts{}); }

TEST(TableEntries, LinesAreReadUntilTheyAreTooMany) {
  TableEntries entries(kAllKinds, 10'000, 2);
  const auto commands = entries.commands();
  ASSERT_EQ(commands.size(), 5U);
  EXPECT_EQ(commands[0], (CommandEntry{"NC_A", Texts{"A1", "PPRINT A  2"}, {}}));
  EXPECT_EQ(commands[2], (CommandEntry{"NC_B", std::nullopt, {}}));
  EXPECT_EQ(commands[3], (CommandEntry{"NC_C", std::nullopt, {}}));
  EXPECT_EQ(entries.lists()[1].values, std::nullopt);
  EXPECT_EQ(entries.formats()[0].format, "%5.1f");
}

TEST(TableEntries, ContentWithoutLinesCountsAsOne) {
  constexpr std::string_view kEmpty =
      "*START_NC_COMMAND NC_A\n*START_SEQUENCE\n*END\n*START_SEQUENCE\n*END\n*END\n";
  EXPECT_EQ(TableEntries(kEmpty, 10'000, 2).commands()[0],
            (CommandEntry{"NC_A", Texts{}, {Texts{}, std::nullopt}}));
}

TEST(TableEntries, BytesAreReadUntilTheyAreTooMany) {
  // The body of NC_B, read twice, and the line of NC_A without its end.
  constexpr std::string_view kTwo =
      "*START_NC_COMMAND NC_B\nB\n*END\n*START_NC_COMMAND NC_A\nA\n*END\n";
  TableEntries entries(kTwo, 2 * 7 + 2, 100);
  const auto commands = entries.commands();
  EXPECT_EQ(commands[0], (CommandEntry{"NC_B", Texts{"B"}, {}}));
  EXPECT_EQ(commands[1], (CommandEntry{"NC_A", std::nullopt, {}}));
}

TEST(TableEntries, BoundsGrowWithTheTable) {
  EXPECT_EQ(mostBytesOfList("12345"), 80U + 256 * 1024 * 1024);
}

}  // namespace
}  // namespace ppword
