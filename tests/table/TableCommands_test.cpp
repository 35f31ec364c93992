#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/table/TableFiles.h"

namespace {

// Instructions stand before commands in the file, and still come after them in the numbering.
constexpr std::string_view kTable =
    "*START_NC_INSTRUCTION NC_I1\n*END\n"
    "*START_NC_COMMAND NC_C1\n*END\n"
    "*START_NC_INSTRUCTION NC_I2\n*END\n"
    "*START_NC_COMMAND NC_C2\n*END\n";

int numberOfCommands(std::string_view table) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  int count = -1;
  EXPECT_TRUE(reader.GetNumberOfCommand(count));
  return count;
}

// The name of a command, "(none)" for false.
std::string nameOfCommand(std::string_view table, int index) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  KEPString name = "untouched";
  if (reader.GetNameOfCommand(index, name)) return name.CastToCharPtr();
  EXPECT_EQ(name, KEPString("untouched"));
  return "(none)";
}

struct Range {
  bool found;
  int range;
  friend bool operator==(const Range&, const Range&) = default;
};

Range rangeOfCommand(std::string_view table, const KEPString& name) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  Range result{false, -1};
  result.found = reader.GetRangeOfCommand(name, result.range);
  return result;
}

TEST(TableCommands, EveryKeywordCounts) {
  EXPECT_EQ(numberOfCommands(kTable), 4);
  EXPECT_EQ(numberOfCommands("*START_NC_COMMAND"), 1);
  EXPECT_EQ(numberOfCommands("*START_NC_COMMAND MY_A X*START_NC_INSTRUCTIONS"), 2);
  EXPECT_EQ(numberOfCommands("/*START_NC_COMMAND NC_A *start_nc_command *START_NC"), 0);
}

TEST(TableCommands, CommandsAreNumberedBeforeInstructions) {
  EXPECT_EQ(nameOfCommand(kTable, 1), "NC_C1");
  EXPECT_EQ(nameOfCommand(kTable, 2), "NC_C2");
  EXPECT_EQ(nameOfCommand(kTable, 3), "NC_I1");
  EXPECT_EQ(nameOfCommand(kTable, 4), "NC_I2");
}

TEST(TableCommands, FirstInstructionIsCommand1WhereThereIsNoCommand) {
  EXPECT_EQ(nameOfCommand("*START_NC_INSTRUCTION NC_I *END", 1), "NC_I");
}

TEST(TableCommands, IndexOutsideTheTableGivesFalse) {
  for (const int index : {-2147483647 - 1, -1, 0, 5, 2147483647}) {
    EXPECT_EQ(nameOfCommand(kTable, index), "(none)") << index;
  }
}

TEST(TableCommands, NameWithoutItsPrefixGivesFalseAtItsIndexOnly) {
  constexpr std::string_view kBadName =
      "*START_NC_COMMAND MY_A *END *START_NC_COMMAND NC_B *END *START_NC_INSTRUCTION NC_C *END";
  EXPECT_EQ(nameOfCommand(kBadName, 1), "(none)");
  EXPECT_EQ(nameOfCommand(kBadName, 2), "NC_B");
  EXPECT_EQ(nameOfCommand(kBadName, 3), "NC_C");
}

TEST(TableCommands, RangeCountsOnlyNamesWithTheirPrefix) {
  constexpr std::string_view kBadName =
      "*START_NC_COMMAND MY_A *END *START_NC_COMMAND NC_B *END *START_NC_INSTRUCTION NC_C *END";
  EXPECT_EQ(rangeOfCommand(kBadName, "NC_B"), (Range{true, 1}));
  EXPECT_EQ(rangeOfCommand(kBadName, "NC_C"), (Range{true, 2}));
  EXPECT_EQ(rangeOfCommand(kBadName, "MY_A"), (Range{false, 2}));
}

TEST(TableCommands, RangeFollowsTheNumbering) {
  EXPECT_EQ(rangeOfCommand(kTable, "NC_C1"), (Range{true, 1}));
  EXPECT_EQ(rangeOfCommand(kTable, "NC_C2"), (Range{true, 2}));
  EXPECT_EQ(rangeOfCommand(kTable, "NC_I1"), (Range{true, 3}));
  EXPECT_EQ(rangeOfCommand(kTable, "NC_I2"), (Range{true, 4}));
}

TEST(TableCommands, RangeOfAnAbsentNameIsFalseWithTheNumberOfCommands) {
  for (const char* name : {"NC_C", "NC_C12", "nc_c1", ""}) {
    EXPECT_EQ(rangeOfCommand(kTable, name), (Range{false, 4})) << name;
  }
}

TEST(TableCommands, RangeOfARepeatedNameIsItsFirst) {
  EXPECT_EQ(rangeOfCommand("*START_NC_INSTRUCTION NC_A *START_NC_COMMAND NC_B "
                           "*START_NC_COMMAND NC_A *START_NC_COMMAND NC_A",
                           "NC_A"),
            (Range{true, 2}));
}

TEST(TableCommands, NameIsTheVeryNextToken) {
  constexpr std::string_view kSlash = "*START_NC_COMMAND /X NC_A *END";
  EXPECT_EQ(nameOfCommand(kSlash, 1), "(none)");
  EXPECT_EQ(rangeOfCommand(kSlash, "NC_A"), (Range{false, 0}));
  EXPECT_EQ(nameOfCommand("*START_NC_COMMAND\n\n NC_A", 1), "NC_A");
}

TEST(TableCommands, KeywordInPlaceOfANameIsTakenAsTheName) {
  constexpr std::string_view kTwice = "*START_NC_COMMAND *START_NC_COMMAND NC_A *END";
  EXPECT_EQ(numberOfCommands(kTwice), 2);
  EXPECT_EQ(nameOfCommand(kTwice, 1), "(none)");
  EXPECT_EQ(nameOfCommand(kTwice, 2), "NC_A");
  EXPECT_EQ(rangeOfCommand(kTwice, "NC_A"), (Range{false, 0}));
}

TEST(TableCommands, KeywordAtTheEndOfTheFileHasNoName) {
  EXPECT_EQ(nameOfCommand("*START_NC_COMMAND", 1), "(none)");
  EXPECT_EQ(rangeOfCommand("*START_NC_COMMAND", "NC_A"), (Range{false, 0}));
}

TEST(TableCommands, StreamStandsBehindTheNameFound) {
  const TableFile file(kTable);
  KEPMfgPPTableTxt reader(file.path());
  KEPMfgPPTableTxtTest inside(reader);
  KEPString name;
  int range = 0;
  EXPECT_TRUE(reader.GetNameOfCommand(3, name));
  EXPECT_EQ(inside.nextToken(), "*END");
  EXPECT_EQ(inside.nextToken(), "*START_NC_COMMAND");
  EXPECT_TRUE(reader.GetRangeOfCommand("NC_I2", range));
  EXPECT_EQ(inside.nextToken(), "*END");
  EXPECT_EQ(inside.nextToken(), "*START_NC_COMMAND");
  EXPECT_EQ(inside.nextToken(), "NC_C2");
}

}  // namespace
