#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/table/TableFiles.h"

namespace {

using Syntax = std::optional<Texts>;

// The syntax of NC_A, by name and by its index 1, which must agree.
Syntax syntaxOfA(std::string_view table) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString byName = listOf({"before"});
  KEPListValKEPString byIndex = listOf({"before"});
  const bool result = reader.GetSyntaxOfCommand("NC_A", byName);
  EXPECT_EQ(reader.GetSyntaxOfCommand(1, byIndex), result);
  EXPECT_EQ(byName, byIndex);
  EXPECT_EQ(byName[1], KEPString("before"));
  Texts syntax = texts(byName);
  syntax.erase(syntax.begin());
  if (result) return syntax;
  EXPECT_EQ(syntax, Texts{});
  return std::nullopt;
}

std::string command(const std::string& name, const std::string& body) {
  return "*START_NC_COMMAND NC_" + name + "\n" + body + "\n*END\n";
}

std::string number(int value) { return std::to_string(value); }

Syntax syntaxByName(std::string_view table) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  if (reader.GetSyntaxOfCommand("NC_A", syntaxes)) return texts(syntaxes);
  return std::nullopt;
}

struct InsertCase {
  std::string table;
  Syntax elements;
};

void expectSyntaxes(const std::vector<InsertCase>& cases) {
  for (const auto& [table, elements] : cases) EXPECT_EQ(syntaxOfA(table), elements) << table;
}

TEST(TableInserts, InsertedElementsStandInPlaceOfTheInsert) {
  expectSyntaxes({
      {command("A", "A1\n*INSERT NC_B\nA2") + command("B", "B1\nB2"),
       Texts{"A1", "B1", "B2", "A2"}},
      {command("A", "A1 X*INSERTX NC_B A2") + command("B", "B1"), Texts{"A1", "B1", "A2"}},
      {command("A", "*INSERT NC_B") + "*START_NC_INSTRUCTION NC_B PPRINT B ONE\n*END",
       Texts{"PPRINT B ONE"}},
      {command("A", "*INSERT NC_B A2 *INSERT NC_C A3") + command("B", "*INSERT NC_C B2") +
           command("C", "C1"),
       Texts{"C1", "B2", "A2", "C1", "A3"}},
  });
}

TEST(TableInserts, EmptyCommandInsertsNothing) {
  EXPECT_EQ(syntaxOfA(command("A", "A1 *INSERT NC_B A2") + command("B", "")), (Texts{"A1", "A2"}));
}

TEST(TableInserts, SameCommandIsInsertedTwice) {
  EXPECT_EQ(syntaxOfA(command("A", "A1 *INSERT NC_B A2 *INSERT NC_B A3") + command("B", "B1")),
            (Texts{"A1", "B1", "A2", "B1", "A3"}));
}

TEST(TableInserts, ScanGoesOnBehindTheNameOfTheInsertItself) {
  EXPECT_EQ(syntaxOfA(command("A", "A1 NC_B A2 XNC_BX\nPPRINT NC_B\n*INSERT NC_B A3") +
                      command("B", "B1")),
            (Texts{"A1", "NC_B", "A2", "XNC_BX", "PPRINT NC_B", "B1", "A3"}));
}

TEST(TableInserts, SecondBodyOfANameGoesOnInItself) {
  const TableFile file(command("A", "FIRST") + command("A", "A1 *INSERT NC_B A2") +
                       command("B", "B1"));
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader.GetSyntaxOfCommand(2, syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"A1", "B1", "A2"}));
}

TEST(TableInserts, FirstCommandOfANameIsInsertedCommandsBeforeInstructions) {
  EXPECT_EQ(
      syntaxOfA("*START_NC_INSTRUCTION NC_B INSTRUCTION *END " + command("A", "*INSERT NC_B") +
                command("B", "FIRST") + command("B", "SECOND")),
      Texts{"FIRST"});
}

TEST(TableInserts, InsertedCommandEndsAtItsFirstSequence) {
  EXPECT_EQ(
      syntaxOfA(command("A", "*INSERT NC_B A2") + command("B", "B1 *START_SEQUENCE S1 *END B2")),
      (Texts{"B1", "S1", "A2"}));
}

TEST(TableInserts, AbsentCommandGivesFalse) {
  expectSyntaxes({
      {command("A", "A1 *INSERT NC_ABSENT A2"), std::nullopt},
      {command("A", "A1 *INSERT NC_B A2") + command("B", "*INSERT NC_ABSENT"), std::nullopt},
  });
}

TEST(TableInserts, NameIsTheVeryNextToken) {
  expectSyntaxes({
      {command("A", "A1 *INSERT /NC_B A2") + command("B", "B1"), std::nullopt},
      {command("A", "A1 *INSERT MY_B A2") + command("B", "B1"), std::nullopt},
      {command("A", "A1 *INSERT NC_B,NC_B A2") + command("B", "B1"), std::nullopt},
      {command("A", "A1 *INSERT\n NC_B A2") + command("B", "B1"), Texts{"A1", "B1", "A2"}},
  });
}

TEST(TableInserts, EndOfFileGivesFalse) {
  expectSyntaxes({
      {"*START_NC_COMMAND NC_A A1 *INSERT", std::nullopt},
      {"*START_NC_COMMAND NC_A A1 *INSERT NC_A", std::nullopt},
      {command("A", "*INSERT NC_B") + "*START_NC_COMMAND NC_B B1", std::nullopt},
      {command("A", "*INSERT NC_B") + "*START_NC_COMMAND NC_B *START_LIST", std::nullopt},
  });
}

TEST(TableInserts, LongTokenOfAnInsertedCommandGivesFalse) {
  const std::string longToken(1024, 'T');
  expectSyntaxes({
      {command("A", "*INSERT NC_B A2") + command("B", longToken), std::nullopt},
      {command("A", "*INSERT " + longToken), std::nullopt},
      {command("A", "*INSERT NC_B A2") + command("B", "B1") + longToken, Texts{"B1", "A2"}},
      {command("A", "*INSERT NC_B A2") + longToken + " " + command("B", "B1"), std::nullopt},
      {command("A", "*INSERT NC_B A2") + longToken + " *START_NC_INSTRUCTION NC_B *END",
       std::nullopt},
  });
}

// An insert that names no command breaks the inserted body off; the body around it then goes on
// behind that insert, in the text of the inserted command, and ends with it.
TEST(TableInserts, BrokenInsertLeavesTheScanInTheInsertedCommand) {
  expectSyntaxes({
      {command("A", "A1 *INSERT NC_B A2") + command("B", "B1 *INSERT MY_X B2 B3"),
       Texts{"A1", "B2", "B3"}},
      {command("A", "A1 *INSERT NC_B A2") + command("B", "B1 *INSERT NC_C B2") +
           command("C", "C1 *INSERT MY_X C2"),
       Texts{"A1", "B1", "C2", "A2"}},
      {command("A", "A1 *INSERT NC_B A2") + command("B", "*INSERT MY_X *INSERT NC_C B2") +
           command("C", "C1"),
       Texts{"A1", "C1", "B2"}},
  });
}

TEST(TableInserts, BrokenInsertBehindABrokenInsertBreaksTheBodyAroundIt) {
  expectSyntaxes({
      {command("A", "A1 *INSERT NC_B A2") + command("B", "B1 *INSERT MY_X B2 *INSERT MY_Y B3"),
       std::nullopt},
      {command("A", "A1 *INSERT NC_B A2") + command("B", "B1 *INSERT NC_C B2") +
           command("C", "C1 *INSERT MY_X C2 *INSERT MY_Y C3"),
       Texts{"A1", "C3"}},
  });
}

TEST(TableInserts, BrokenCommandIsBrokenEachTime) {
  EXPECT_EQ(
      syntaxOfA(command("A", "*INSERT NC_B *INSERT NC_C A1") + command("B", "B1 *INSERT NC_D B2") +
                command("C", "C1 *INSERT NC_D C2") + command("D", "D1 *INSERT MY_X D2")),
      (Texts{"B1", "D2", "C1", "D2", "A1"}));
}

TEST(TableInserts, BrokenCommandThatInsertsItselfNeverEnds) {
  expectSyntaxes({
      {command("A", "*INSERT NC_B") + command("B", "*INSERT MY_X *INSERT NC_B"), std::nullopt},
      {command("A", "*INSERT NC_B") + command("B", "B1 *INSERT MY_X B2 *INSERT NC_B"),
       std::nullopt},
      {command("A", "*INSERT NC_B") + command("B", "*INSERT MY_X *INSERT NC_C") +
           command("C", "*INSERT MY_X *INSERT NC_B"),
       std::nullopt},
  });
}

TEST(TableInserts, EndlessChainGivesFalse) {
  expectSyntaxes({
      {command("A", "A1 *INSERT NC_A"), std::nullopt},
      {command("A", "*INSERT NC_A"), std::nullopt},
      {command("A", "*INSERT NC_B") + command("B", "*INSERT NC_A"), std::nullopt},
      {command("A", "*INSERT NC_B") + command("B", "*INSERT NC_C") +
           command("C", "C1 *INSERT NC_B"),
       std::nullopt},
  });
}

TEST(TableInserts, EndlessChainGivesFalseBehindOtherCommands) {
  EXPECT_EQ(syntaxByName(command("Z", "Z1") + command("A", "*INSERT NC_A")), std::nullopt);
}

TEST(TableInserts, SequenceMayInsertItsOwnCommand) {
  const TableFile file(
      command("A", "A1 *START_SEQUENCE S1 *END *START_SEQUENCE *INSERT NC_A S2 *END"));
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader.GetSyntaxOfSequenceForCommand("NC_A", 2, syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"A1", "S1", "S2"}));
}

TEST(TableInserts, DeepChainTakesNoStack) {
  constexpr int kDepth = 50'000;
  std::string table = command("A", "*INSERT NC_1");
  for (int i = 1; i < kDepth; ++i) table += command(number(i), "E *INSERT NC_" + number(i + 1));
  table += command(number(kDepth), "LAST");
  const Syntax elements = syntaxByName(table);
  ASSERT_TRUE(elements);
  ASSERT_EQ(elements->size(), 50'000U);
  EXPECT_EQ(elements->back(), "LAST");
}

// Each of 60 commands inserts the next twice; the last one has this body.
std::string doublingTable(const std::string& innermost) {
  std::string table = command("A", "*INSERT NC_1 A1");
  for (int i = 1; i < 60; ++i) {
    const std::string insert = " *INSERT NC_" + number(i + 1);
    table += command(number(i), insert + insert);
  }
  return table + command("60", innermost);
}

TEST(TableInserts, DoublingChainGivesFalse) {
  EXPECT_EQ(syntaxOfA(doublingTable("LAST")), std::nullopt);
}

TEST(TableInserts, DoublingChainOfNothingEnds) {
  EXPECT_EQ(syntaxOfA(doublingTable("")), Texts{"A1"});
}

// 100,000 elements: five times ten of the level below.
std::string hundredThousand(const std::string& more) {
  std::string table = command("A", "*INSERT NC_5" + more);
  for (int level = 5; level > 0; --level) {
    std::string body;
    for (int i = 0; i < 10; ++i) body += "*INSERT NC_" + number(level - 1) + "\n";
    table += command(number(level), body);
  }
  return table + command("0", "E");
}

TEST(TableInserts, HundredThousandElementsAreGiven) {
  const Syntax elements = syntaxOfA(hundredThousand(""));
  ASSERT_TRUE(elements);
  EXPECT_EQ(elements->size(), 100'000U);
}

TEST(TableInserts, MoreElementsGiveFalse) {
  EXPECT_EQ(syntaxOfA(hundredThousand(" ONE")), std::nullopt);
}

// Commands without an end share the text behind them, so that together they hold far more than
// the file: here as elements of bodies that are dropped, because an insert names no command.
TEST(TableInserts, OverlappingBodiesThatFillTheMemoryGiveFalse) {
  constexpr int kCommands = 12;
  std::string table = command("A", "*INSERT NC_P0");
  std::string overlapping;
  for (int i = 0; i < kCommands; ++i) {
    table += command("P" + number(i),
                     "*INSERT NC_" + number(i) + " *INSERT MY_X *INSERT NC_P" + number(i + 1));
    overlapping += "*START_NC_COMMAND NC_" + number(i) + "\n";
  }
  table += command("P" + number(kCommands), "LAST") + overlapping;
  for (int i = 0; i < 95'000; ++i) table += "E\n";
  EXPECT_EQ(syntaxByName(table + "*END"), std::nullopt);
}

TEST(TableInserts, OverlappingBodiesThatTakeTooLongGiveFalse) {
  constexpr int kCommands = 1'000;
  std::string table = "*START_NC_COMMAND NC_A\n";
  std::string overlapping;
  for (int i = 0; i < kCommands; ++i) {
    table += "*INSERT NC_" + number(i) + "\n";
    overlapping += "*START_NC_COMMAND NC_" + number(i) + " *START_LIST\n";
  }
  EXPECT_EQ(syntaxByName(table + "*END\n" + overlapping + std::string(300'000, '\n') + "*END *END"),
            std::nullopt);
}

TEST(TableInserts, ElementsAreMendedInTheListTheyComeTo) {
  const std::string line = "GOTO/" + std::string(66, '1') + ",%MFG_YPO";
  expectSyntaxes({
      {command("A", "*INSERT NC_B INT,A2") + command("B", line), Texts{line + "INT,", "A2"}},
      {command("A", line + " *INSERT NC_B") + command("B", "INT,B2"), Texts{line + "INT,", "B2"}},
      {command("A", line + " *INSERT NC_B A2") + command("B", "INT,"),
       Texts{line + "INT,", "", "A2"}},
  });
}

// Mending the inserted list makes its second element 80 characters wide, and the list around it
// takes that one as cut.
TEST(TableInserts, InsertedElementsAreMendedAtEveryLevel) {
  const std::string line = "GOTO/" + std::string(66, '1') + ",%MFG_YPO";
  const std::string body = line + " INT," + line + " INT,B3";
  expectSyntaxes({
      {command("A", body), Texts{line + "INT,", line, "INT,B3"}},
      {command("A", "*INSERT NC_B") + command("B", body),
       Texts{line + "INT,", line + "INT,", "B3"}},
  });
}

// Each level makes the next element 80 characters wide, also where a command only inserts another.
TEST(TableInserts, CommandThatOnlyInsertsIsALevel) {
  const std::string line = "GOTO/" + std::string(66, '1') + ",%MFG_YPO";
  const std::string body = line + " INT," + line + " INT," + line + " INT,D4";
  expectSyntaxes({
      {command("A", "*INSERT NC_D") + command("D", body),
       Texts{line + "INT,", line + "INT,", line, "INT,D4"}},
      {command("A", "*INSERT NC_C") + command("C", "*INSERT NC_D") + command("D", body),
       Texts{line + "INT,", line + "INT,", line + "INT,", "D4"}},
      {command("A", "A1 *INSERT NC_B A2") + command("B", "*INSERT NC_C") +
           command("C", "*INSERT NC_D") + command("D", body),
       Texts{"A1", line + "INT,", line + "INT,", line + "INT,", "D4", "A2"}},
  });
}

TEST(TableInserts, BodyWhoseCommandIsUnknownGivesFalse) {
  const TableFile file(command("A", "A1 *INSERT NC_B A2") + command("B", "B1"));
  KEPMfgPPTableTxt reader(file.path());
  KEPMfgPPTableTxtTest inside(reader);
  KEPListValKEPString syntaxes = listOf({"before"});
  int range = 0;
  ASSERT_TRUE(reader.GetRangeOfCommand("NC_A", range));
  EXPECT_FALSE(inside.syntaxFromPosition("NC_UNKNOWN", syntaxes));
  EXPECT_EQ(texts(syntaxes), Texts{"before"});
  ASSERT_TRUE(reader.GetRangeOfCommand("NC_B", range));
  EXPECT_TRUE(inside.syntaxFromPosition("NC_UNKNOWN", syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"before", "B1"}));
}

TEST(TableInserts, StreamStandsBehindTheEndOfTheBodyAroundThem) {
  const TableFile file(command("A", "*INSERT NC_B") + "NEXT " + command("B", "B1"));
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader.GetSyntaxOfCommand("NC_A", syntaxes));
  EXPECT_EQ(KEPMfgPPTableTxtTest(reader).nextToken(), "NEXT");
}

TEST(TableInserts, SyntaxOfInsertPlacesTheStreamBehindTheName) {
  const TableFile file(command("A", "A1 *INSERT NC_B A2") + command("B", "B1") +
                       command("C", "*INSERT NC_B C2"));
  KEPMfgPPTableTxt reader(file.path());
  KEPMfgPPTableTxtTest inside(reader);
  KEPListValKEPString syntaxes = listOf({"before"});
  EXPECT_TRUE(inside.syntaxOfInsert("NC_B", "NC_A", syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"before", "B1"}));
  EXPECT_EQ(inside.nextToken(), "A2");
}

TEST(TableInserts, SyntaxOfInsertIsFalseWhenAStepFails) {
  const TableFile file(command("B", "B1") + command("C", "*INSERT NC_B") + command("A", "A1") +
                       "*START_NC_COMMAND NC_OPEN O1");
  KEPMfgPPTableTxt reader(file.path());
  KEPMfgPPTableTxtTest inside(reader);
  KEPListValKEPString syntaxes;
  EXPECT_FALSE(inside.syntaxOfInsert("NC_ABSENT", "NC_A", syntaxes));
  EXPECT_FALSE(inside.syntaxOfInsert("NC_OPEN", "NC_A", syntaxes));
  EXPECT_EQ(syntaxes.Size(), 0);
  EXPECT_FALSE(inside.syntaxOfInsert("NC_B", "NC_ABSENT", syntaxes));
  EXPECT_EQ(texts(syntaxes), Texts{"B1"});
  EXPECT_FALSE(inside.syntaxOfInsert("NC_B", "NC_A", syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"B1", "B1"}));
}

}  // namespace
