#include "language/table/SyntaxPlaces.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace ppword {
namespace {

/// What is at the places of a sequence, up to the end of each line.
std::vector<std::string> lines(std::string_view table, int number, const std::string& name,
                               int sequence = 1) {
  SyntaxPlaces places(table);
  std::vector<std::string> found;
  for (const long place : places.placesOf(number, name, sequence)) {
    const std::string_view rest = table.substr(static_cast<std::size_t>(place));
    found.emplace_back(rest.substr(0, rest.find('\n')));
  }
  return found;
}

using Lines = std::vector<std::string>;

constexpr std::string_view kTable =
    "*START_NC_INSTRUCTION NC_B\nB1 B2\n*INSERT NC_A\n/NONE\nPPRINT X  Y\n*END\n"
    "*START_NC_COMMAND NC_A\nA1\r\n\tA2\n*START_LIST MFG_L\nON\n*END\n*END\n"
    "*START_NC_INSTRUCTION NC_C\n*START_SEQUENCE\nC1\n*END\n*START_SEQUENCE\n*INSERT "
    "NC_B\nC2\n*END\n"
    "*END\n"
    "*START_NC_INSTRUCTION NC_B\nB3\n*END";

TEST(SyntaxPlaces, CommandsAreNumberedBeforeInstructions) {
  EXPECT_EQ(lines(kTable, 1, "NC_A"), (Lines{"A1\r", "A2"}));
  EXPECT_EQ(lines(kTable, 2, "NC_B"), (Lines{"B1 B2", "B2", "A1\r", "A2", "PPRINT X  Y"}));
  EXPECT_EQ(lines(kTable, 4, "NC_B"), (Lines{"B3"}));
}

TEST(SyntaxPlaces, SequencesInsertTheFirstOfTheName) {
  EXPECT_EQ(lines(kTable, 3, "NC_C"), (Lines{"C1"}));
  EXPECT_EQ(lines(kTable, 3, "NC_C", 2), (Lines{"B1 B2", "B2", "A1\r", "A2", "PPRINT X  Y", "C2"}));
}

TEST(SyntaxPlaces, WhatCannotBeReadHasNone) {
  EXPECT_EQ(lines(kTable, 5, "NC_D"), Lines{});
  EXPECT_EQ(lines(kTable, 0, "NC_A"), Lines{});
  EXPECT_EQ(lines(kTable, 3, "NC_C", 3), Lines{});
  EXPECT_EQ(lines(kTable, 3, "NC_X", 2), Lines{});
  EXPECT_EQ(lines("*START_NC_COMMAND NC_A\n*INSERT NC_A\n*END\n", 1, "NC_A"), Lines{});
  EXPECT_EQ(lines("*START_NC_COMMAND NC_A\nA1\n", 1, "NC_A"), Lines{});
  EXPECT_EQ(lines("", 1, "NC_A"), Lines{});
}

TEST(SyntaxPlaces, BodyInsertedTwiceHasItsPlacesTwice) {
  EXPECT_EQ(lines("*START_NC_COMMAND NC_A\nA1\n*END\n"
                  "*START_NC_COMMAND NC_B\n*INSERT NC_A\n*INSERT NC_A\n*END\n"
                  "*START_NC_COMMAND NC_C\n*INSERT NC_B\nC1\n*INSERT NC_B\n*END\n",
                  3, "NC_C"),
            (Lines{"A1", "A1", "C1", "A1", "A1"}));
}

}  // namespace
}  // namespace ppword
