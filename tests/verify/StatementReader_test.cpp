// An APT text is read statement by statement.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <regex>
#include <string>
#include <vector>

#include "tests/support/Mutator.h"
#include "tests/support/PointNumber.h"
#include "tests/verify/Texts.h"

namespace verify {
namespace {

using Texts = std::vector<std::string>;

Texts findingsOf(std::string_view text) { return readText(text).findings; }
Texts eventsOf(std::string_view text) { return readText(text).events; }

/// The tokens of the only statement of a text.
Texts tokensOf(std::string_view text) {
  const ReadText read = readText(text);
  EXPECT_EQ(read.statements.size(), 1U);
  Texts tokens;
  for (const Token& token : read.statements.front().tokens) {
    tokens.emplace_back(read.statements.front().textOf(token));
  }
  return tokens;
}

TEST(StatementReader, StatementIsWordsNumbersAndMarks) {
  EXPECT_EQ(tokensOf("GOTO  / 1.5, -2.,+.25,MM"),
            (Texts{"GOTO", "/", "1.5", ",", "-2.", ",", "+.25", ",", "MM"}));
  EXPECT_EQ(tokensOf("TLON,GOFWD/(CIRCLE/1,2,3,4),ON,2,INTOF,$\n(LINE/1,2,3,4,5,6)").size(), 37U);
  EXPECT_EQ(tokensOf("P1=POINT/5AXIS"), (Texts{"P1", "=", "POINT", "/", "5AXIS"}));
}

TEST(StatementReader, NumberHasHalfAUnitOfItsLastDigit) {
  const ReadText read = readText("X/12,-1.50,.125,2.5E2,1E-3,5.");
  std::vector<double> numbers;
  std::vector<double> halves;
  for (const Token& token : read.statements.front().tokens) {
    if (token.kind != TokenKind::Number) continue;
    numbers.push_back(token.number);
    halves.push_back(token.halfUnit);
  }
  EXPECT_EQ(numbers, (std::vector<double>{12, -1.5, 0.125, 250, 0.001, 5}));
  const std::vector<double> due{0.5, 0.005, 0.0005, 5, 0.0005, 0.5};
  ASSERT_EQ(halves.size(), due.size());
  for (std::size_t i = 0; i < due.size(); ++i) EXPECT_DOUBLE_EQ(halves[i], due[i]);
}

TEST(StatementReader, NumbersAreThoseOfTheStandardLibrary) {
  const unsigned seed = chosenSeed();
  std::mt19937 random(seed);
  for (int round = 0; round < 5000; ++round) {
    std::string text = random() % 2 == 0 ? "-" : "";
    const std::size_t digits = 1 + random() % 20;
    const std::size_t point = random() % (digits + 1);
    for (std::size_t i = 0; i < digits; ++i) {
      if (i == point) text += '.';
      text += static_cast<char>('0' + random() % 10);
    }
    const ReadText read = readText("X/" + text);
    ASSERT_EQ(read.statements.front().tokens.size(), 3U);
    EXPECT_EQ(read.statements.front().tokens.back().number, readWithPoint(text.c_str()))
        << text << " seed " << seed;
  }
}

TEST(StatementReader, PlacesAreThoseOfTheText) {
  const ReadText read = readText("\n  GOTO/1,$\n 22,3\nEND");
  ASSERT_EQ(read.statements.size(), 2U);
  const Statement& statement = read.statements.front();
  EXPECT_EQ(statement.place.line, 2);
  EXPECT_EQ(statement.place.column, 3);
  EXPECT_EQ(statement.tokens[4].place.line, 3);
  EXPECT_EQ(statement.tokens[4].place.column, 2);
  EXPECT_EQ(statement.textOf(statement.tokens[4]), "22");
  EXPECT_EQ(read.statements.back().place.line, 4);
}

TEST(StatementReader, TextsAndCommentsAreNotRead) {
  const ReadText read = readText("PPRINT 50% OF & 1,,2 $ '(\nPARTNO/X\n$$ %A,,\nREMARK\nPPRINTED");
  EXPECT_EQ(read.findings, (Texts{"5:1 long-word PPRINTED: a word of more than six letters; use a "
                                  "word of the reader"}));
  EXPECT_EQ(read.events, (Texts{"comments", "comments", "comments", "comments", "unknown"}));
  EXPECT_EQ(read.statements[0].text, "PPRINT 50% OF & 1,,2 $ '(");
  EXPECT_EQ(read.statements[1].word, "PARTNO");
}

TEST(StatementReader, CommentEndsAStatement) {
  EXPECT_EQ(tokensOf("GOTO/1,2,3 $$ %A,,4"), (Texts{"GOTO", "/", "1", ",", "2", ",", "3"}));
}

TEST(StatementReader, EventsAreThoseOfTheWords) {
  EXPECT_EQ(eventsOf("FROM/1,2,3\nRAPID\nGOTO/1,2,3\nTLAXIS/0,0,1\nMULTAX\nFEDRAT/1,MMPM\n"
                     "SPINDL/1,RPM,CLW\nLOADTL/1\nCOOLNT/OFF\nDELAY/1\nUNITS/MM\nSTOP\nCYCLE/OFF\n"
                     "CUTCOM/OFF\nHELICAL/1\nFOO/1\n1,2"),
            (Texts{"moves", "rapid", "moves", "tool axis", "tool axis", "feed rates", "spindle",
                   "tools", "coolant", "dwell", "units", "stops", "cycles", "other", "helices",
                   "unknown", "unknown"}));
}

TEST(StatementReader, CirclesAreReadInEachForm) {
  EXPECT_EQ(eventsOf("CIRCLE/1,2,3,0,0,1\nGOTO/1,2,3\nGOTO/1,2,4\n"
                     "AUTOPS\nINDIRV/1,0,0\nTLON,GOFWD/(CIRCLE/1,2,3,4),ON,(LINE/1,2,3,4,5,6)\n"
                     "PSIS/(PLANE/(POINT/1,2,3),PERPTO,(VECTOR/0,0,1))\n"
                     "TLON,GOFWD/(CYLNDR/1,2,3,0,0,1,4),ON,(PLANE/PERPTO,(POINT/1,2,3))\n"
                     "TLLFT,GOFWD/L1"),
            (Texts{"circles", "parts of circles", "moves", "parts of circles", "parts of circles",
                   "circles", "parts of circles", "circles", "contour"}));
}

TEST(StatementReader, OldTextsAreRead) {
  const std::string numbered =
      "PARTNO OLD PART                                                         PART0010\r\n"
      "GOTO/1,2,$                                                              PART0020\r\n"
      "3                                                                       PART0030\r\n";
  const ReadText read = readText(numbered);
  EXPECT_EQ(read.findings, Texts());
  EXPECT_EQ(read.events, (Texts{"comments", "moves"}));
  EXPECT_EQ(read.statements[0].text, "PARTNO OLD PART");
  EXPECT_EQ(findingsOf("PPRINT Gr\xFC\xDF"
                       "e\r\nGOTO/1,2,3\r\n"),
            (Texts{"1:10 character-in-text byte 0xFC: a character that is not printable ASCII, in "
                   "a text; write it with ASCII characters"}));
}

TEST(StatementReader, CharacterOfSeveralBytesHasOneColumnOfACard) {
  const std::string blanks(64, ' ');
  const ReadText read = readText("PPRINT \xC3\x98" + blanks + "00000010\nPPRINT \xD8" + blanks +
                                 "00000020\nPPRINT \xE2\x82\xAC" + blanks + "00000030\n");
  ASSERT_EQ(read.statements.size(), 3U);
  EXPECT_EQ(read.statements[0].text, "PPRINT \xC3\x98");
  EXPECT_EQ(read.statements[1].text, "PPRINT \xD8");
  EXPECT_EQ(read.statements[2].text, "PPRINT \xE2\x82\xAC");
}

TEST(StatementReader, WideLineIsNotACardWithoutANumberInTheFirstLine) {
  const std::string wide = "GOTO/" + std::string(70, ' ') + "1,2,3";
  EXPECT_EQ(findingsOf("GOTO/1,2,3\n" + wide),
            (Texts{"2:73 wide-line the line goes beyond column 72; continue it with $ after a "
                   "comma"}));
}

struct Case {
  const char* text;
  Texts findings;
};

TEST(StatementReader, FindingsHavePlaceKeyAndMessage) {
  const Case cases[] = {
      {"GOTO/1,\t2,3", {"1:8 tab a tab; write blanks"}},
      {"GOTO/1,2,3\xB0",
       {"1:11 character byte 0xB0: a character that is not printable ASCII, outside of a text; "
        "write letters, digits and signs of ASCII",
        "1:10 bad-number 3\xB0: this is not a number; write a sign, digits and one point"}},
      {"GOTO/1,2,$\n\nEND",
       {"1:10 open-continuation no line continues the statement after its $; remove the $, or "
        "write the line",
        "1:9 empty-argument an argument is empty; write a value, or no comma",
        "1:1 goto-count GOTO has 2: neither 3 nor 6 numbers; write the point, or the point and the "
        "tool axis"}},
      {"FOO$",
       {"1:4 open-continuation no line continues the statement after its $; remove the $, or write "
        "the line"}},
      {"FOO$\n$$ A comment",
       {"1:4 open-continuation no line continues the statement after its $; remove the $, or write "
        "the line"}},
      {"GOTO/1,2,$3\n4",
       {"1:11 text-after-dollar text after a $ is not read; write the $ at the end of the line"}},
      {"GOTO/1,2,3$\n4",
       {"2:1 cut-argument 4: a word or a number is cut by the end of the line; write the $ after a "
        "comma",
        "1:1 goto-count GOTO has 4: neither 3 nor 6 numbers; write the point, or the point and the "
        "tool axis"}},
      {"TOOLNO/3,$\nRAPID",
       {"2:1 swallowed-statement RAPID: a statement begins where a $ continues the one before; "
        "remove the $ at the end of the line before"}},
      {"TOOLNO/3,", {"1:9 empty-argument an argument is empty; write a value, or no comma"}},
      {"TPRINT/", {"1:7 empty-argument an argument is empty; write a value, or no comma"}},
      {"MULTAX/", {"1:7 empty-argument an argument is empty; write a value, or no comma"}},
      {"X/(),1", {"1:3 empty-argument an argument is empty; write a value, or no comma"}},
      {"GOTO/1 2,3,4",
       {"1:8 missing-comma 2: no comma is before this argument; write a comma between two "
        "arguments",
        "1:1 goto-count GOTO has 4: neither 3 nor 6 numbers; write the point, or the point and the "
        "tool axis"}},
      {"X/(1", {"1:4 parenthesis the parentheses of the statement do not match; close each one"}},
      {"X/1)", {"1:4 parenthesis the parentheses of the statement do not match; close each one"}},
      {"FEDRAT/&MFG_FEED",
       {"1:8 leftover-reference &MFG_FEED: a reference was not replaced; correct its name in the "
        "table"}},
      {"GOTO/1,2.5.1,3",
       {"1:8 bad-number 2.5.1: this is not a number; write a sign, digits and one point"}},
      {"FEDRAT/1O0",
       {"1:8 bad-number 1O0: this is not a number; write a sign, digits and one point"}},
      {"FEDRAT/nan",
       {"1:8 bad-number nan: this is not a number; write a sign, digits and one "
        "point"}},
      {"FEDRAT/2*3",
       {"1:8 bad-number 2*3: this is not a number; write a sign, digits and one "
        "point"}},
      {"FEDRAT/1E999",
       {"1:8 bad-number 1E999: this is not a number; write a sign, digits and one point",
        "1:8 exponent 1E999: a number with an exponent; write all of its digits"}},
      {"FROM/1,2",
       {"1:1 goto-count FROM has 2: neither 3 nor 6 numbers; write the point, or the point and the "
        "tool axis"}},
      {"GOTO/1,2,3,0,0,2",
       {"1:12 axis-length the length of the tool axis is not 1; write the components of a "
        "direction "
        "of length 1"}},
      {"TLAXIS/0,0.9998,0",
       {"1:8 axis-length the length of the tool axis is not 1; write the components of a direction "
        "of length 1"}},
      {"TLAXIS/0.707,0.000,0.707", {}},
      {"TLAXIS/0.0,0.99995,0.0", {}},
      {"HELICAL/1",
       {"1:1 long-word HELICAL: a word of more than six letters; use a word of the "
        "reader"}},
      {"FEDRAT/1E2", {"1:8 exponent 1E2: a number with an exponent; write all of its digits"}},
      {"FEDRAT/-0.00", {"1:8 minus-zero -0.00: a zero with a minus sign; write it without sign"}},
      {"GOTO/P1", {}},
      {"CUTCOM/SAME, NORMDS", {}},
  };
  for (const Case& each : cases) EXPECT_EQ(findingsOf(each.text), each.findings) << each.text;
}

TEST(StatementReader, ExamplesOfTheRulesAreReportedAndNotReported) {
  for (const RuleRow& row : rules()) {
    const std::string key = ' ' + std::string(row.key) + ' ';
    if (row.reported.empty() || row.key == "no-statement") continue;
    const auto names = [&key](const std::string& finding) {
      return finding.find(key) != std::string::npos;
    };
    const Texts reported = findingsOf(row.reported);
    EXPECT_TRUE(std::any_of(reported.begin(), reported.end(), names)) << row.reported;
    EXPECT_EQ(findingsOf(row.sound), Texts()) << row.key;
  }
}

TEST(StatementReader, ManualPageNamesEveryRule) {
  std::ifstream file(PPWORD_SOURCE_DIR "/docs/ppword.1");
  const std::string page(std::istreambuf_iterator<char>(file), {});
  for (const RuleRow& row : rules()) {
    const std::string key = std::regex_replace(std::string(row.key), std::regex("-"), "\\-");
    EXPECT_NE(page.find("\n.B " + key + "\n"), std::string::npos) << row.key;
  }
}

TEST(StatementReader, HugeLinesAreCut) {
  const std::string line(std::size_t{3} << 20U, 'A');
  const ReadText read = readText("PPRINT " + line + "\nEND\n");
  EXPECT_EQ(read.findings.front(),
            "1:1048577 long-line the line is longer than 1 MiB (1048576 bytes); is this file a "
            "text?");
  EXPECT_EQ(read.statements.front().text.size(), std::size_t{1} << 20U);
  EXPECT_EQ(read.events, (Texts{"comments"}));
}

TEST(StatementReader, EndlessLineIsNotReadToItsEnd) {
  TextLines lines([](char* to, std::size_t most) {
    std::fill_n(to, most, 'A');
    return most;
  });
  std::string_view line;
  EXPECT_TRUE(lines.next(line));
  EXPECT_EQ(line.size(), TextLines::kLongestLine);
  EXPECT_TRUE(lines.isCut());
  EXPECT_FALSE(lines.next(line));
}

TEST(StatementReader, EndlessContinuationIsCut) {
  std::string text = "GOTO/";
  for (int i = 0; i < 200'000; ++i) text += "1,$\n";
  const ReadText read = readText(text);
  ASSERT_EQ(read.statements.size(), 1U);
  EXPECT_EQ(read.statements.front().tokens.size(), 100'000U);
  EXPECT_EQ(read.findings.front(),
            "50000:1 long-statement the statement has more than 1 MiB (1048576 bytes) or 100000 "
            "words, numbers and marks; end it: a line without $ at its end");
}

TEST(StatementReader, LineFeedsMayBeAnywhereInWhatTheSourceReturns) {
  const std::string text = "GOTO/1,2,3\r\nEND\n\nFINI";
  for (std::size_t piece = 1; piece < text.size(); ++piece) {
    std::string_view rest = text;
    TextLines lines([&](char* to, std::size_t /*most*/) {
      const std::size_t count = rest.copy(to, piece);
      rest.remove_prefix(count);
      return count;
    });
    Texts all;
    for (std::string_view line; lines.next(line);) all.emplace_back(line);
    EXPECT_EQ(all, (Texts{"GOTO/1,2,3", "END", "", "FINI"}));
  }
}

TEST(StatementReader, DamagedTextsAreRead) {
  const unsigned seed = chosenSeed();
  Mutator mutator(seed, "$,/()%& \t\n\r0123456789.-+EPG");
  const std::string text =
      "PARTNO X\nGOTO/1.5,-2.0,3\nTLON,GOFWD/(CIRCLE/1,2,3,$\n4),ON\n$$ A\nFEDRAT/1E3,MMPM\n";
  for (int round = 0; round < 3000; ++round) {
    const std::string damaged = mutator.mutate(text);
    const ReadText read = readText(damaged);
    EXPECT_LE(read.statements.size(), damaged.size()) << "seed " << seed;
  }
}

TEST(StatementReader, RandomBytesAreRead) {
  const unsigned seed = chosenSeed();
  std::mt19937 random(seed);
  for (int round = 0; round < 200; ++round) {
    std::string bytes(4096, ' ');
    for (char& byte : bytes) byte = static_cast<char>(random() & 0xFFU);
    const ReadText read = readText(bytes);
    EXPECT_LE(read.statements.size(), bytes.size()) << "seed " << seed;
  }
}

TEST(Words, WordsCanMeanTheSame) {
  Words words;
  EXPECT_TRUE(words.add("MOVE", "GOTO"));
  EXPECT_TRUE(words.add("NOTE", "PPRINT"));
  EXPECT_FALSE(words.add("MOVE", "NOWORD"));
  EXPECT_FALSE(words.add("A/B", "GOTO"));
  EXPECT_FALSE(words.add("", "GOTO"));
  const ReadText read = readText("MOVE/1,2\nNOTE a,,b\nCIRCLE/1,2,3\nMOVE/1,2,3", words);
  EXPECT_EQ(read.events, (Texts{"moves", "comments", "circles", "parts of circles"}));
  EXPECT_EQ(read.findings, (Texts{"1:1 goto-count MOVE has 2: neither 3 nor 6 numbers; write the "
                                  "point, or the point and the tool axis"}));
}

TEST(Words, EachWordIsThereOnce) {
  std::map<std::string_view, int> counts;
  for (const WordRow& row : standardWords()) ++counts[row.word];
  for (const auto& [word, count] : counts) EXPECT_EQ(count, 1) << word;
}

}  // namespace
}  // namespace verify
