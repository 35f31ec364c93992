// What two tables mean differently: each change as "NAME WHAT OLD>NEW", a side being its line and
// its text, "-" for a side that does not have it and "?" for a text that cannot be read.

#include "inspect/compare/TableDifference.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "tests/support/Mutator.h"

namespace host {
namespace {

std::string side(const std::optional<TableChange::Side>& side) {
  if (!side) return "-";
  return std::to_string(side->place.line) + ':' + side->text.value_or("?");
}

std::string difference(std::string_view before, std::string_view after) {
  constexpr std::array<std::string_view, 9> kWhats = {
      "entry", "code", "kind", "word", "text", "sequence", "line", "insert", "reading"};
  const auto table = [](std::string_view text) { return TableBytes(std::string(text)); };
  std::string text;
  for (const TableChange& change : tableChanges(table(before), table(after))) {
    text += change.name;
    if (change.sequence > 1) text += '#' + std::to_string(change.sequence);
    (text += ' ') += kWhats[static_cast<std::size_t>(change.what)];
    if (!change.through.empty()) text += '(' + change.through + ')';
    text += ' ' + side(change.before) + '>' + side(change.after) + '\n';
  }
  return text;
}

std::string block(std::string_view keyword, std::string_view body) {
  return (((std::string("*START_") += keyword) += '\n') += body) += "\n*END\n";
}
std::string command(std::string_view name, std::string_view body) {
  return block(std::string("NC_COMMAND ") += name, body);
}

TEST(TableDifference, OrderBlanksAndCommentsAreNone) {
  EXPECT_EQ(difference("", ""), "");
  EXPECT_EQ(difference("", "a comment"), "");
  const std::string words = block("MINOR_WORDS", "ON,71,OFF,72");
  const std::string format = block("FORMAT MFG_XPOINT", "%.3f");
  const std::string go = command("NC_GO", "A/1\nB/2");
  EXPECT_EQ(difference(words + format + go, go + "comment\n" + format + words), "");
  EXPECT_EQ(difference(words, block("MINOR_WORDS", "OFF 72\n\tON 71\r")), "");
  EXPECT_EQ(difference(go, command("NC_GO", "A/1  B/2")), "");
  EXPECT_EQ(difference(go, block("NC_INSTRUCTION NC_GO", "*START_SEQUENCE\nA/1\nB/2\n*END")), "");
  EXPECT_EQ(difference(go, command("NC_GO", "A/1\n/B/1\nB/2")), "");
  EXPECT_EQ(difference(block("SYNTAXES", "A B"), block("SYNTAXES", "B\nA")), "");
}

TEST(TableDifference, UpperAndLowerCaseDiffer) {
  EXPECT_EQ(difference(command("NC_GO", "A"), command("NC_GO", "a")), "NC_GO line 2:A>2:a\n");
}

TEST(TableDifference, WordsDifferInKindAndCode) {
  EXPECT_EQ(
      difference(block("MINOR_WORDS", "ON,71\nOFF,72\nOLD,7"),
                 block("MINOR_WORDS", "ON,71\nOFF,73\n") + block("MAJOR_WORDS_WITH_TEXT", "NEW,8")),
      "OFF code 3:72>3:73\nOLD entry 4:7>-\nNEW entry ->7:8\n");
  EXPECT_EQ(difference(block("MINOR_WORDS", "ON,71"), block("MAJOR_WORDS_WITH_TEXT", "ON,72")),
            "ON kind 2:71>2:72\nON code 2:71>2:72\n");
}

TEST(TableDifference, MissingCodeShiftsTheCodesAfterIt) {
  EXPECT_EQ(difference(block("MINOR_WORDS", "A,1\nB,2\nC,3"), block("MINOR_WORDS", "A,1\nB\nC,3")),
            "B code 3:2>3:?\nC entry 4:3>-\n3 entry ->4:?\n");
  EXPECT_EQ(difference(block("MINOR_WORDS", "A,1"), block("MINOR_WORDS", "A")), "A code 2:1>2:?\n");
}

TEST(TableDifference, FirstWordOfACodeCounts) {
  EXPECT_EQ(difference(block("MINOR_WORDS", "A,1\nB,1"), block("MINOR_WORDS", "B,1\nA,1")),
            "1 word 2:A>2:B\n");
  EXPECT_EQ(difference(block("MINOR_WORDS", "A,1"), block("MINOR_WORDS", "A,1\nA,2")),
            "2 word ->3:A\n");
  EXPECT_EQ(difference(block("MINOR_WORDS", "A,1"), block("MINOR_WORDS", "A,1\nA,1")), "");
}

TEST(TableDifference, OnlyTheFirstSectionOfAKindIsRead) {
  EXPECT_EQ(difference(block("MINOR_WORDS", "A,1"),
                       block("MINOR_WORDS", "A,1") + block("MINOR_WORDS", "B,2")),
            "");
}

TEST(TableDifference, FreeSyntaxesAreThereOrNot) {
  EXPECT_EQ(difference(block("SYNTAXES", "A B A"), block("SYNTAXES", "A C")),
            "B entry 2:>-\nA entry 2:>-\nC entry ->2:\n");
}

TEST(TableDifference, FormatsAndListsDifferInTheirTexts) {
  EXPECT_EQ(difference(block("FORMAT MFG_A", "%f") + block("FORMAT MFG_B", "%f"),
                       block("FORMAT MFG_C", "%f") + block("FORMAT MFG_A", "%.1f")),
            "MFG_A text 1:%f>4:%.1f\nMFG_B entry 4:%f>-\nMFG_C entry ->1:%f\n");
  EXPECT_EQ(difference(block("LIST MFG_A", "A,B"), block("LIST MFG_A", "A B")), "");
  EXPECT_EQ(difference(block("LIST MFG_A", "A,B"), block("LIST MFG_A", "B,A")),
            "MFG_A text 1:A,B>1:B,A\n");
  EXPECT_EQ(difference(block("FORMAT MFG_A", "%f"), block("FORMAT MFG_A", "")),
            "MFG_A text 1:%f>1:\n");
}

TEST(TableDifference, LastFormatOfANameCounts) {
  EXPECT_EQ(difference(block("FORMAT MFG_A", "%e") + block("FORMAT MFG_A", "%f"),
                       block("FORMAT MFG_A", "%f")),
            "");
}

TEST(TableDifference, LinesOfInstructionsDiffer) {
  EXPECT_EQ(difference(command("NC_GO", "A\nB\nC"), command("NC_GO", "A\nX\nC\nD")),
            "NC_GO line 3:B>3:X\nNC_GO line ->5:D\n");
  EXPECT_EQ(difference(command("NC_GO", "PPRINT A  B"), command("NC_GO", "PPRINT A B")),
            "NC_GO line 2:PPRINT A  B>2:PPRINT A B\n");
  EXPECT_EQ(difference(command("NC_A", "A"), command("NC_B", "A")),
            "NC_A entry 1:?>-\nNC_B entry ->1:?\n");
}

TEST(TableDifference, SequencesAreComparedOneByOne) {
  const auto sequence = [](std::string_view body) { return block("SEQUENCE", body); };
  EXPECT_EQ(difference(command("NC_GO", sequence("A") + sequence("B") + sequence("C")),
                       command("NC_GO", sequence("A") + sequence("X"))),
            "NC_GO#2 line 6:B>6:X\nNC_GO#3 sequence 1:?>-\n");
}

TEST(TableDifference, InsertedLinesAreReportedWithTheirCommand) {
  const std::string users = command("NC_A", "A\n*INSERT NC_STOP") +
                            command("NC_B", "*INSERT NC_STOP\n*INSERT NC_STOP") +
                            command("NC_C", "*INSERT NC_B\nC");
  EXPECT_EQ(difference(command("NC_STOP", "OFF\nSTOP") + users,
                       "\n" + command("NC_STOP", "ON\nSTOP") + users),
            "NC_STOP line 2:OFF>3:ON\n"
            "NC_A insert(NC_STOP) 2:OFF>3:ON\n"
            "NC_B insert(NC_STOP) 2:OFF>3:ON\n"
            "NC_C insert(NC_STOP) 2:OFF>3:ON\n");
}

TEST(TableDifference, LineWrittenOutInPlaceOfItsInsertIsNone) {
  const std::string stop = command("NC_STOP", "OFF\nSTOP");
  EXPECT_EQ(difference(stop + command("NC_A", "A\n*INSERT NC_STOP"),
                       stop + command("NC_A", "A\nOFF\nSTOP")),
            "");
}

TEST(TableDifference, OtherInsertsShowTheirLines) {
  const std::string stops = command("NC_S", "S") + command("NC_T", "T");
  EXPECT_EQ(
      difference(stops + command("NC_A", "*INSERT NC_S"), stops + command("NC_A", "*INSERT NC_T")),
      "NC_A line 2:S>5:T\n");
  EXPECT_EQ(difference(stops + command("NC_A", "A"), stops + command("NC_A", "*INSERT NC_S\nA")),
            "NC_A line ->2:S\n");
  EXPECT_EQ(difference(stops + command("NC_A", "A\n*INSERT NC_S"),
                       stops + command("NC_A", "*INSERT NC_S\nA")),
            "NC_A line 8:A>-\nNC_A line ->9:A\n");
}

TEST(TableDifference, MovedInsertShowsTheLinesThatMoved) {
  const std::string stop = command("NC_S", "S");
  EXPECT_EQ(difference(stop + command("NC_A", "*INSERT NC_S\nA\nB"),
                       stop + command("NC_A", "A\nB\n*INSERT NC_S")),
            "NC_A line 2:S>-\nNC_A line ->2:S\n");
}

TEST(TableDifference, CommandsOfOneNameAreComparedInTheirOrder) {
  EXPECT_EQ(difference(command("NC_A", "A") + command("NC_A", "B"),
                       command("NC_A", "A") + command("NC_A", "C")),
            "NC_A line 5:B>5:C\n");
  EXPECT_EQ(difference(command("NC_A", "A"), command("NC_A", "A") + command("NC_A", "B")),
            "NC_A entry ->4:?\n");
}

TEST(TableDifference, WhatOneTableCannotReadIsReported) {
  EXPECT_EQ(difference(command("NC_A", "A"), command("NC_A", "*INSERT NC_A")),
            "NC_A reading ->1:?\n");
  EXPECT_EQ(difference(command("NC_A", "*INSERT NC_B"), command("NC_A", "*INSERT NC_A")), "");
  EXPECT_EQ(difference(command("NC_A", "A"), "*START_NC_COMMAND NC_A\nA\n"),
            "NC_A reading ->1:?\n");
  EXPECT_EQ(difference("", "*START_MINOR_WORDS\nA,1\n"), " reading ->0:?\n");
  EXPECT_EQ(difference("", "*START_SYNTAXES\nA\n"), " reading ->0:?\n");
  EXPECT_EQ(difference("*START_LIST MFG_A\nA\n*END\n", "*START_LIST MFG_A\nA\n"),
            "MFG_A text 1:A>1:?\n");
}

TEST(TableDifference, InsertsThatMultiplyTakeNoTime) {
  std::string table = command("NC_0", "");
  for (int i = 1; i < 300; ++i) {
    const std::string insert = "*INSERT NC_" + std::to_string(i - 1);
    std::string twice = insert;
    twice.append("\n").append(insert);
    table += command("NC_" + std::to_string(i), twice);
  }
  EXPECT_EQ(difference(table, table + command("NC_Z", "Z")), "NC_Z entry ->1200:?\n");
}

TEST(TableDifference, EveryTableMeansTheSameAsItself) {
  const std::string sound = block("MINOR_WORDS", "ON,71") + block("LIST MFG_A", "A,B") +
                            command("NC_S", "S") + command("NC_A", "A\n*INSERT NC_S") +
                            block("NC_INSTRUCTION NC_B", block("SEQUENCE", "PPRINT A B"));
  const unsigned seed = chosenSeed();
  SCOPED_TRACE(seed);
  Mutator mutator(seed, "*/,_ \r\nAN_019");
  for (int round = 0; round < 2000; ++round) {
    const std::string table = mutator.mutate(sound);
    EXPECT_EQ(difference(table, table), "") << table;
    static_cast<void>(difference(sound, table));
  }
}

}  // namespace
}  // namespace host
