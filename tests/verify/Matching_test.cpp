// The pieces of the reader: numbers, words, lines and places.

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Mutator.h"
#include "tests/verify/WrittenTexts.h"
#include "verify/PrintedNumber.h"
#include "verify/StatementReader.h"

namespace {

struct Short {
  std::size_t length;
  double value;
  double halfUnit;
};

void expectShort(std::string_view text, const Short& expected) {
  verify::PrintedNumber number;
  EXPECT_EQ(verify::readShortNumber(text, number), expected.length) << text;
  if (expected.length == 0) return;
  EXPECT_EQ(number.value, expected.value) << text;
  EXPECT_EQ(number.halfUnit, expected.halfUnit) << text;
}

TEST(PrintedNumber, ShortOnesAreReadFromTheBeginning) {
  expectShort("12", {2, 12.0, 0.5});
  expectShort("-1.25,3", {5, -1.25, 0.005});
  expectShort("+.5)", {3, 0.5, 0.05});
  expectShort("7. ", {2, 7.0, 0.5});
  expectShort("-0.000", {6, 0.0, 0.0005});
  expectShort("123456789012345", {15, 123456789012345.0, 0.5});
  expectShort("0.00000000000001", {16, 1e-14, 0.5e-14});
}

TEST(PrintedNumber, OthersAreNotShort) {
  for (const std::string_view text :
       {"", "-", ".", "+.", "A1", " 1", "1E3", "1.5e", "1.2.3", "1-2", "1+", "1234567890123456",
        "0.000000000000001", "99999999999999999999999999", ",1"}) {
    expectShort(text, {0, 0.0, 0.0});
  }
}

/// The nearest double to the digits, by another way than that of the reader.
double nearestTo(std::string_view text) {
  double value = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

TEST(PrintedNumber, EveryOneIsTheNearestDouble) {
  const unsigned seed = chosenSeed();
  std::mt19937 random(seed);
  const auto below = [&](int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
  };
  for (int round = 0; round < 20000; ++round) {
    std::string text = below(2) == 0 ? "-" : "";
    const int digits = 1 + below(18);
    const int point = below(digits + 1);
    for (int at = 0; at < digits; ++at) {
      if (at == point) text += '.';
      text += static_cast<char>('0' + below(10));
    }
    const auto number = verify::readNumber(text);
    ASSERT_TRUE(number) << text << " seed " << seed;
    EXPECT_EQ(number->value, nearestTo(text)) << text << " seed " << seed;
    const int decimals = point < digits ? digits - point : 0;
    EXPECT_NEAR(number->halfUnit * std::pow(10.0, decimals), 0.5, 1e-12) << text;
  }
}

TEST(Words, BytesBeforeAWordMakeAnotherOne) {
  const verify::Words words;
  EXPECT_NE(words.find("GOTO"), nullptr);
  EXPECT_EQ(words.find(std::string_view("\0GOTO", 5)), nullptr);
  EXPECT_EQ(words.find(""), nullptr);
  EXPECT_EQ(words.find("GOTOGOTOGOTO"), nullptr);
  EXPECT_NE(words.find("HELICAL"), nullptr);
}

TEST(Words, ThousandsOfThemAreFound) {
  verify::Words words;
  for (int number = 0; number < 5000; ++number) {
    ASSERT_TRUE(words.add("W" + std::to_string(number), "GOTO"));
    ASSERT_TRUE(words.add("LONGWORD" + std::to_string(number), "PPRINT"));
  }
  for (int number = 0; number < 5000; ++number) {
    EXPECT_EQ(words.find("W" + std::to_string(number)), words.find("GOTO"));
    EXPECT_EQ(words.find("LONGWORD" + std::to_string(number)), words.find("PPRINT"));
  }
  EXPECT_EQ(words.find("W5000"), nullptr);
  EXPECT_NE(words.textWordOf("LONGWORD7 A"), nullptr);
  EXPECT_EQ(words.textWordOf("W7 A"), nullptr);
  EXPECT_EQ(words.textWordOf(""), nullptr);
}

/// The lines of a text whose bytes come in pieces of so many.
std::vector<std::string> linesRead(std::string_view text, std::size_t piece) {
  verify::TextLines lines([&](char* to, std::size_t most) {
    const std::size_t count = text.copy(to, std::min(most, piece));
    text.remove_prefix(count);
    return count;
  });
  std::vector<std::string> all;
  for (std::string_view line; lines.next(line);) all.emplace_back(line);
  return all;
}

TEST(TextLines, PiecesOfTheBytesDoNotMatter) {
  const std::string text = "GOTO/1,2,3\r\n\nRAPID\n" + std::string(70000, 'X') + "\nEND";
  const std::vector<std::string> expected{"GOTO/1,2,3", "", "RAPID", std::string(70000, 'X'),
                                          "END"};
  for (const std::size_t piece : {1U, 2U, 3U, 7U, 11U, 13U, 65536U, 100000U}) {
    EXPECT_EQ(linesRead(text, piece), expected) << piece;
  }
}

TEST(TextLines, TextThatGrowsIsReadOn) {
  std::string text = "A\n";
  std::size_t offset = 0;
  verify::TextLines lines([&](char* to, std::size_t most) {
    const std::size_t count = text.copy(to, most, offset);
    offset += count;
    return count;
  });
  std::string_view line;
  ASSERT_TRUE(lines.next(line));
  EXPECT_FALSE(lines.next(line));
  text += "B\n";
  ASSERT_TRUE(lines.next(line));
  EXPECT_EQ(line, "B");
  EXPECT_EQ(lines.number(), 2);
}

/// What a reader without findings has, and the places of some bytes.
std::string quickly(std::string_view text, std::initializer_list<std::size_t> offsets = {}) {
  const verify::Words words;
  verify::StatementReader reader(verify::bytesOf(text), words);
  verify::Statement statement;
  std::string all;
  while (reader.next(statement)) {
    all += statement.text + '|';
    EXPECT_TRUE(statement.tokens.empty());
    for (const std::size_t offset : offsets) {
      const verify::TextPlace place = statement.placeOf(offset);
      all += std::to_string(place.line) + ':' + std::to_string(place.column) + ' ';
    }
  }
  return all;
}

TEST(QuickReader, StatementsAreThoseOfAnyReader) {
  EXPECT_EQ(quickly("GOTO/1,$\n2,3\n\nPPRINT A $\n$$ B $\n  RAPID  \nX $ dropped\nY$$ kept\n"),
            "GOTO/1,2,3|PPRINT A $|$$ B $|  RAPID|X Y$$ kept|");
  // An empty line and a comment end what a $ continues.
  EXPECT_EQ(quickly("A,$\n\nB,$\n$$ C\nD$"), "A,|B,|$$ C|D|");
}

TEST(QuickReader, BytesHaveTheirPlaces) {
  EXPECT_EQ(quickly("A\n  GOTO/1,$\n 2,3\n", {0, 8, 9, 10}),
            "A|1:1 1:9 1:10 1:11   GOTO/1, 2,3|2:1 2:9 3:1 3:2 ");
  EXPECT_EQ(quickly("  PPRINT AB", {0, 7}), "PPRINT AB|1:3 1:10 ");
}

TEST(QuickReader, LineOf80ColumnsIsNoCard) {
  const std::string line = "PPRINT " + std::string(65, 'X') + "00000010";
  EXPECT_EQ(quickly(line + "\nRAPID\n"), line + "|RAPID|");
}

TEST(QuickReader, LinesAndStatementsWithoutEndAreCut) {
  const std::string line(verify::TextLines::kLongestLine + 5, 'X');
  EXPECT_EQ(quickly(line + "\nRAPID\n"), line.substr(5) + "|");
  std::string endless;
  for (int i = 0; i < 20; ++i) endless += std::string(100'000, 'X') + "$\n";
  EXPECT_LE(quickly(endless).size(), verify::TextLines::kLongestLine + 1);
}

std::string matched(std::string_view lines, std::string_view text, std::string_view table) {
  return comparisonOf(writeJob(lines, table), text);
}

TEST(Matching, NumberDoesNotGoOnInTheNextLine) {
  constexpr std::string_view kGo = R"({"nc":"NC_GOTO","points":[[1,2,34]]})";
  EXPECT_EQ(matched(kGo, "GOTO/1,2,$\n34\n", ""), "agrees, 1 elements, 1 verified, 0 own");
  EXPECT_EQ(matched(kGo, "GOTO/1,2,3$\n4\n", ""), "1:10 3 | 34 | 2 NC_GOTO");
}

TEST(Matching, StatementThatMayHaveSwallowedAnotherIsNotVerified) {
  constexpr std::string_view kTable = "*START_NC_INSTRUCTION NC_RAPID\nTOOLNO/3,\nRAPID\n*END\n";
  EXPECT_EQ(matched(R"({"nc":"NC_RAPID"})", "TOOLNO/3,$\nRAPID\n", kTable),
            "agrees, 1 elements, 0 verified, 0 own; not verified NC_RAPID 1 from 2");
  EXPECT_EQ(matched(R"({"nc":"NC_RAPID"})", "TOOLNO/3\nRAPID\n", kTable),
            "1:9 TOOLNO/3 | TOOLNO/3,RAPID | 2 NC_RAPID");
}

TEST(Matching, LineThatContinuesAnotherIsNotAStatementOfItsOwn) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_RAPID\nCYCLE/DRILL,\n1,\nRAPTO,2\n*END\n";
  EXPECT_EQ(matched(R"({"nc":"NC_RAPID"})", "CYCLE/DRILL,$\n1,$\nRAPTO,2\n", kTable),
            "agrees, 1 elements, 1 verified, 1 own");
}

TEST(Matching, EmptyLineEndsWhatACommaContinues) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_RAPID\nCYCLE/DRILL,\n&MFG_OUTPUT_COMMENT\nEND\n*END\n";
  const WrittenText written = writeJob(R"({"nc":"NC_RAPID"})", kTable);
  EXPECT_EQ(written.text, "CYCLE/DRILL,$\n\nEND\n");
  EXPECT_EQ(comparisonOf(written, written.text), "agrees, 1 elements, 2 verified, 1 own");
}

TEST(Matching, ElementsThatAlternateHaveTheirLines) {
  constexpr std::string_view kTable =
      "*START_NC_COMMAND NC_COOLANT\n*START_SEQUENCE\nCOOLNT/ON\n*END\n*START_SEQUENCE\n"
      "COOLNT/OFF\n*END\n*END\n";
  std::string lines;
  std::string text;
  for (int round = 0; round < 5; ++round) {
    lines += R"({"nc":"NC_COOLANT","sequence":2})"
             "\n"
             R"({"nc":"NC_COOLANT"})"
             "\n"
             R"({"nc":"NC_RAPID"})";
    text += "COOLNT/OFF\nCOOLNT/ON\nRAPID\n";
    if (round < 4) lines += '\n';
  }
  EXPECT_EQ(matched(lines, text, kTable), "agrees, 15 elements, 15 verified, 15 own");
}

TEST(Matching, NumbersOfTheSameInstructionAreThoseOfEachElement) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION "
      "NC_HELICAL_INTERPOLATION\nFEDRAT/%MFG_HELICAL_RADIUS,%MFG_HELICAL_ROUND\n"
      "*END\n";
  const std::string lines =
      R"({"nc":"NC_HELICAL_INTERPOLATION","helix":{"axis":[0,0,1],"end":[0,0,4],"pitch":2,"radius":5}})"
      "\n"
      R"({"nc":"NC_HELICAL_INTERPOLATION","helix":{"pitch":0}})"
      "\n"
      R"({"nc":"NC_HELICAL_INTERPOLATION","helix":{"pitch":1,"radius":6}})"
      "\n"
      R"({"nc":"NC_HELICAL_INTERPOLATION","helix":{"radius":7}})";
  constexpr std::string_view kText = "FEDRAT/5,2\nFEDRAT/5,UNKNOWN\nFEDRAT/6,4\nFEDRAT/7,4\n";
  WrittenText written = writeJob(lines, kTable);
  written.document.unevaluated = "UNKNOWN";
  EXPECT_EQ(comparisonOf(written, kText), "agrees, 4 elements, 4 verified, 0 own");
  EXPECT_EQ(comparisonOf(written, "FEDRAT/5,2\nFEDRAT/5,UNKNOWN\nFEDRAT/6,4\nFEDRAT/7,4.1\n"),
            "4:10 4.1 | 4 | 5 NC_HELICAL_INTERPOLATION");
  EXPECT_EQ(comparisonOf(written, "FEDRAT/5,2\nFEDRAT/5,UNKNOWN\nFEDRAT/6,2\nFEDRAT/7,4\n"),
            "3:10 2 | 4 | 4 NC_HELICAL_INTERPOLATION");
}

TEST(Matching, LineThatLooksAlikeIsReadToItsEnd) {
  constexpr std::string_view kGo = R"({"nc":"NC_GOTO","points":[[1,2,3]]})";
  // A comment may follow; a $ continues the line; a blank means nothing.
  for (const std::string_view text :
       {"GOTO/1,2,3$\n\n", " GOTO/1,2,3\n", "\n\nGOTO/1,2,3 \n", "GOTO / 1,2 ,3", "GOTO/1,2,$\n3\n",
        "G$\nOTO/1$\n,2,3\n", "GOTO/1,2, $\n   3\n"}) {
    EXPECT_EQ(matched(kGo, text, ""), "agrees, 1 elements, 1 verified, 0 own") << text;
  }
  EXPECT_EQ(matched(kGo, "GOTO/1,2,3$\nRAPID\n", ""),
            "2:1 GOTO/1,2,3RAPID | GOTO/1,2,3 | 2 NC_GOTO");
  EXPECT_EQ(matched(kGo, "GOTO/1,2,3$\n", ""), "agrees, 1 elements, 1 verified, 0 own");
  EXPECT_EQ(matched(kGo, "GOTO/1,2,3,4\n", ""), "1:11 GOTO/1,2,3,4 | GOTO/1,2,3 | 2 NC_GOTO");
  EXPECT_EQ(matched(kGo, "GOTO/1,2\n", ""), "1:9 GOTO/1,2 | GOTO/1,2,3 | 2 NC_GOTO");
}

TEST(Matching, NumberBeyondAComputersIsNoPrintOfAnother) {
  constexpr std::string_view kGo = R"({"nc":"NC_GOTO","points":[[1,2,3]]})";
  EXPECT_EQ(matched(kGo, "GOTO/1,1e999,3\n", ""), "1:8 1e999 | 2 | 2 NC_GOTO");
  EXPECT_EQ(matched(kGo, "GOTO/1,0e999,3\n", ""), "1:8 0e999 | 2 | 2 NC_GOTO");
}

TEST(Matching, EndOfALineOrAStatementThatIsNotReadIsNotWhatTheInputSays) {
  const WrittenText written = writeJob(R"({"nc":"NC_RAPID"})");
  const std::string blanks(verify::TextLines::kLongestLine, ' ');
  EXPECT_FALSE(agrees(written, "RAPID" + blanks + "/ON\nGOTO/1,2,3\n"));
  EXPECT_FALSE(agrees(written, "RAPID$\n" + blanks.substr(3) + "/ON\n"));
}

TEST(Matching, OnlyTheUnitOfADwellHasAWordThatPrintsNothing) {
  constexpr std::string_view kTable =
      "*START_LIST MFG_FEED_UNIT\n________,MMPR\n*END\n"
      "*START_NC_INSTRUCTION NC_FEEDRATE\nFEDRAT/%MFG_FEED_VALUE,&MFG_FEED_UNIT\n*END\n";
  const WrittenText written =
      writeJob(R"({"nc":"NC_FEEDRATE","feedrate":{"value":5,"type":"linear"}})", kTable);
  EXPECT_EQ(written.text, "FEDRAT/    5.0000,________\n");
  EXPECT_EQ(comparisonOf(written, written.text), "agrees, 1 elements, 1 verified, 0 own");
  EXPECT_EQ(comparisonOf(written, "FEDRAT/5,\n"),
            "1:10 FEDRAT/5, | FEDRAT/5,________ | 2 NC_FEEDRATE");
}

TEST(Matching, FormatWithMoreThanANumberIsNotFollowed) {
  for (const std::string_view format :
       {"X%.2f", "%.2fMM", "%.1f%%", "%.1f.", "%.1fE2", "%a", "%A"}) {
    const std::string table = "*START_FORMAT MFG_YPOINT\n" + std::string(format) +
                              "\n*END\n*START_NC_INSTRUCTION NC_GOTO\n"
                              "GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n";
    const WrittenText written = writeJob(R"({"nc":"NC_GOTO","points":[[1,2,3]]})", table);
    EXPECT_EQ(comparisonOf(written, written.text),
              "agrees, 1 elements, 0 verified, 0 own; not verified NC_GOTO 1 from 2")
        << format;
  }
  for (const std::string_view format : {"%.3f", "%-+12.4e", "%#G", "%.0f.", "%08.2F"}) {
    const std::string table = "*START_FORMAT MFG_YPOINT\n" + std::string(format) +
                              "\n*END\n*START_NC_INSTRUCTION NC_GOTO\n"
                              "GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n";
    const WrittenText written = writeJob(R"({"nc":"NC_GOTO","points":[[1,2,3]]})", table);
    EXPECT_EQ(comparisonOf(written, written.text), "agrees, 1 elements, 1 verified, 0 own")
        << format;
  }
}

TEST(Matching, TextWithADollarIsComparedWithTheWholeLine) {
  constexpr std::string_view kTable = "*START_NC_INSTRUCTION NC_RAPID\nPPRINT A $\nRAPID\n*END\n";
  EXPECT_EQ(matched(R"({"nc":"NC_RAPID"})", "PPRINT A $\nRAPID\n", kTable),
            "agrees, 1 elements, 2 verified, 2 own");
}

TEST(Matching, BlankInAWordMakesAnotherOne) {
  constexpr std::string_view kRapid = R"({"nc":"NC_RAPID"})";
  EXPECT_EQ(matched(kRapid, "RAP ID\n", ""), "1:4 RAP ID | RAPID | 2 NC_RAPID");
  EXPECT_EQ(matched(kRapid, "  RAPID  \n", ""), "agrees, 1 elements, 1 verified, 1 own");
}

TEST(Matching, BlankBetweenWordsIsOneOrMore) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_RAPID\nLOADTL/1,%MFG_OUTPUT_COMMENT\n*END\n";
  constexpr std::string_view kWords = R"({"nc":"NC_RAPID","comment":"A B"})";
  for (const std::string_view text : {"LOADTL / 1,A B", " LOADTL/1 ,  A\t B"}) {
    EXPECT_EQ(matched(kWords, text, kTable), "agrees, 1 elements, 1 verified, 0 own");
  }
  EXPECT_EQ(matched(kWords, "LOAD TL/1,A B\n", kTable),
            "1:5 LOAD TL/1,A B | LOADTL/1,A B | 2 NC_RAPID");
  EXPECT_EQ(matched(kWords, "LOADTL/1,AB\n", kTable),
            "1:11 LOADTL/1,AB | LOADTL/1,A B | 2 NC_RAPID");
}

TEST(Matching, BlanksAroundANumberAreThoseOfItsFormat) {
  constexpr std::string_view kGo = R"({"nc":"NC_GOTO","points":[[1,2,3]]})";
  constexpr std::string_view kText =
      "*START_NC_INSTRUCTION NC_GOTO\nPPRINT AT %MFG_XPOINT PERCENT\n*END\n";
  const std::string agrees = "agrees, 1 elements, 1 verified, 0 own; left out NC_GOTO 1 from 2";
  for (const std::string_view text : {"PPRINT AT 1 PERCENT", "PPRINT AT   1.0   PERCENT"}) {
    EXPECT_EQ(matched(kGo, text, kText), agrees) << text;
  }
  EXPECT_EQ(matched(kGo, "PPRINT AT 1PERCENT\n", kText),
            "1:12 PPRINT AT 1PERCENT | PPRINT AT 1 PERCENT | 2 NC_GOTO; left out NC_GOTO 1 from 2");
  EXPECT_EQ(matched(kGo, "PPRINT AT1 PERCENT\n", kText),
            "1:10 PPRINT AT1 PERCENT | PPRINT AT 1 PERCENT | 2 NC_GOTO; left out NC_GOTO 1 from 2");
}

TEST(Matching, SignAfterANumberOfATextIsNotPartOfIt) {
  constexpr std::string_view kGo = R"({"nc":"NC_GOTO","points":[[1,2,3]]})";
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_GOTO\nPPRINT %MFG_XPOINT-MM,%MFG_YPOINT+%MFG_ZPOINT\n*END\n";
  const WrittenText written = writeJob(kGo, kTable);
  EXPECT_EQ(comparisonOf(written, written.text),
            "agrees, 1 elements, 1 verified, 0 own; left out NC_GOTO 1 from 2");
  EXPECT_EQ(matched(kGo, "PPRINT 1-MM,2+3\n", kTable),
            "agrees, 1 elements, 1 verified, 0 own; left out NC_GOTO 1 from 2");
  EXPECT_EQ(matched(kGo, "PPRINT 1-MM,2-3\n", kTable),
            "1:14 PPRINT 1-MM,2-3 | PPRINT 1-MM,2+3 | 2 NC_GOTO; left out NC_GOTO 1 from 2");
  EXPECT_EQ(matched(kGo, "PPRINT 1-MM,2+4\n", kTable),
            "1:15 4 | 3 | 2 NC_GOTO; left out NC_GOTO 1 from 2");
}

TEST(Matching, FormatsOfTheGenerationAreFollowedAsThoseOfTheDocument) {
  WrittenText written = writeJob(R"({"nc":"NC_GOTO","points":[[1,2,3]]})", "");
  written.generation.pointFormat = "X%.3f";
  EXPECT_EQ(comparisonOf(written, "GOTO/X1.000,X2.000,X3.000\n"),
            "agrees, 1 elements, 0 verified, 0 own; not verified NC_GOTO 1 from 2");
  written.generation.pointFormat = "%,3f";
  EXPECT_EQ(comparisonOf(written, "GOTO/1.000,2.000,3.000\n"),
            "agrees, 1 elements, 1 verified, 0 own");
  written.generation.pointFormat = "";
  written.generation.axisFormat = "%a";
  EXPECT_EQ(comparisonOf(written, "GOTO/1,2,3\n"), "agrees, 1 elements, 1 verified, 0 own");
}

TEST(Matching, NothingIsRefusedAfterALineThatMayBeEmpty) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_RAPID\n%MFG_XPOINT/%MFG_YPOINT\nRAPID\n*END\n";
  constexpr std::string_view kGo = R"({"nc":"NC_RAPID"}
{"nc":"NC_GOTO","points":[[1,2,3]]})";
  const WrittenText written = writeJob(kGo, kTable);
  EXPECT_EQ(written.text, "\nRAPID\nGOTO/    1.00000,    2.00000,    3.00000\n");
  EXPECT_EQ(comparisonOf(written, written.text),
            "agrees, 2 elements, 0 verified, 0 own; not verified NC_GOTO 1 from 3; "
            "not verified NC_RAPID 2 from 2");
  // Where the line is there, all goes on, and a value shows that it does.
  constexpr std::string_view kTwo = R"({"nc":"NC_RAPID"}
{"nc":"NC_GOTO","points":[[1,2,3],[4,5,6]]})";
  EXPECT_EQ(matched(kTwo, "0.5\nRAPID\nGOTO/1,2,3\nGOTO/4,5,7\n", kTable),
            "4:10 7 | 6 | 3 NC_GOTO, point 2; not verified NC_RAPID 1 from 2");
  EXPECT_EQ(comparisonOf(written, "0.5\nRAPID\nGOTO/1,2,3\n"),
            "agrees, 2 elements, 2 verified, 1 own; not verified NC_RAPID 1 from 2");
}

TEST(Matching, PointInOtherCoordinatesIsNotTheStatedOne) {
  constexpr std::string_view kGo = R"({"nc":"NC_GOTO","points":[[1,2,3],[1,2,4]]})";
  const auto table = [](std::string_view line) {
    return "*START_NC_INSTRUCTION NC_GOTO\n" + std::string(line) + "\n*END\n";
  };
  EXPECT_EQ(
      matched(kGo, "GOTO/2,1,3\nGOTO/2,1,4\n", table("GOTO/%MFG_YPOINT,%MFG_XPOINT,%MFG_ZPOINT")),
      "agrees, 2 elements, 2 verified, 0 own; other point NC_GOTO 2 from 2");
  EXPECT_EQ(matched(kGo, "GOTO/1,2,7\nGOTO/1,2,7\n", table("GOTO/%MFG_XPOINT,%MFG_YPOINT,7")),
            "agrees, 2 elements, 2 verified, 0 own; left out NC_GOTO 1 from 2; "
            "other point NC_GOTO 2 from 2");
  EXPECT_EQ(
      matched(kGo, "GOTO/9,2,3\nGOTO/9,2,4\n", table("GOTO/%MFG_XPOINT+8,%MFG_YPOINT,%MFG_ZPOINT")),
      "agrees, 2 elements, 0 verified, 0 own; not verified NC_GOTO 2 from 2");
}

TEST(Matching, ValuesThatNoLinePrintsAreLeftOut) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_FEEDRATE\nFEDRAT/7\n*END\n"
      "*START_NC_INSTRUCTION NC_SPINDLE\nSPINDL/%MFG_SPNDL_SPEED\n*END\n"
      "*START_NC_INSTRUCTION NC_RAPID\nRAPID\n*END\n";
  constexpr std::string_view kJob = R"({"nc":"NC_FEEDRATE","feedrate":{"value":5}}
{"nc":"NC_FEEDRATE","feedrate":{"value":6}}
{"nc":"NC_RAPID","spindle":{"value":100}}
{"nc":"NC_SPINDLE"}
{"nc":"NC_RAPID","spindle":{"value":200}}
{"nc":"NC_RAPID","spindle":{"value":300}}
{"nc":"NC_SPINDLE"}
{"nc":"NC_GOTO","points":[[1,2,3,0,0,1],[1,2,3,0,1,0]]})";
  EXPECT_EQ(matched(kJob,
                    "FEDRAT/7\nFEDRAT/7\nRAPID\nSPINDL/100\nRAPID\nRAPID\nSPINDL/300\n"
                    "GOTO/1,2,3\nGOTO/1,2,3\n",
                    kTable),
            "agrees, 9 elements, 9 verified, 5 own; left out feed rate of NC_FEEDRATE 2 from 2; "
            "left out spindle speed of NC_RAPID 1 from 6; left out tool axis of NC_GOTO 1 from 9");
}

}  // namespace
