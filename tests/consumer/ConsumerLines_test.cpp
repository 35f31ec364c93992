// What becomes of the lines of a text for a consumer.

#include "post/consumer/ConsumerLines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace host::test {
namespace {

class Texts final : public LineSink {
 public:
  void write(std::string_view line) override { texts.emplace_back(line); }

  std::vector<std::string> texts;
};

/// The texts that the lines become.
std::vector<std::string> written(const Consumer& consumer, const std::vector<std::string>& lines,
                                 const std::vector<std::string>& textWords = {}) {
  Texts sink;
  ConsumerLines consumed(consumer, textWords, sink);
  for (const std::string& line : lines) consumed.write(line);
  return sink.texts;
}

/// Why a line is refused; empty for one that is not.
std::string refusal(const Consumer& consumer, const std::string& line) {
  try {
    written(consumer, {line});
    return "";
  } catch (const UnfitLine& unfit) {
    return unfit.what();
  }
}

Consumer withColumns(int columns) {
  Consumer consumer;
  consumer.columns = columns;
  return consumer;
}

using LineList = std::vector<std::string>;

TEST(ConsumerLines, WithoutRulesEveryLineStaysAsItIs) {
  const LineList lines = {"", "GOTO/1,2,$", "\xFF\x01", std::string(200, 'a'), "A\nB"};
  EXPECT_EQ(written({}, lines), lines);
}

TEST(ConsumerLines, StatementGoesOnAfterTheLastCommaThatFits) {
  const std::string fits = "GOTO/" + std::string(66, '1') + ",";
  EXPECT_EQ(written(withColumns(72), {fits}), LineList{fits});
  // The comma in column 71 leaves a column for the $.
  const std::string first = "GOTO/" + std::string(65, '1') + ",";
  EXPECT_EQ(written(withColumns(72), {first + "22"}), LineList{first + "$\n22"});
  // The comma in column 72 does not.
  EXPECT_EQ(written(withColumns(72), {"A/1," + std::string(67, '2') + ",3"}),
            LineList{"A/1,$\n" + std::string(67, '2') + ",3"});
  EXPECT_EQ(written(withColumns(80), {"A/1," + std::string(67, '2') + ",3"}),
            LineList{"A/1," + std::string(67, '2') + ",3"});
}

TEST(ConsumerLines, StatementGoesOnAsOftenAsItMust) {
  const std::string argument = std::string(39, '7') + ",";
  EXPECT_EQ(written(withColumns(72), {"A/" + argument + argument + argument + "8,$"}),
            (LineList{"A/" + argument + "$\n" + argument + "$\n" + argument + "8,$"}));
}

TEST(ConsumerLines, CommentStaysWithTheEndOfItsStatement) {
  const std::string comment = " $$ one, two, three, four, five, six, seven, eight, nine, ten";
  EXPECT_EQ(written(withColumns(72), {"GOTO/1,2," + std::string(10, '3') + comment}),
            LineList{"GOTO/1,2,$\n" + std::string(10, '3') + comment});
}

TEST(ConsumerLines, ColumnsAreCharactersAndNoneIsCut) {
  std::string line = "A/" + std::string(30, 'b') + ',';
  for (int i = 0; i < 39; ++i) line += "\xC3\xA9";
  EXPECT_EQ(written(withColumns(72), {line}), LineList{line});
  EXPECT_EQ(written(withColumns(72), {line + "\xC3\xA9"}),
            LineList{"A/" + std::string(30, 'b') + ",$\n" + line.substr(33) + "\xC3\xA9"});
}

TEST(ConsumerLines, WhatCannotBeBrokenIsRefused) {
  const std::string word(70, 'A');
  EXPECT_EQ(refusal(withColumns(72), word + "/1"), "");
  EXPECT_EQ(
      refusal(withColumns(72), word + "/11"),
      "\"AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA...\" does not fit into 72 columns, and has no "
      "comma where it can go on");
  EXPECT_EQ(
      refusal(withColumns(80), "PPRINT " + std::string(74, 'x')),
      "the text \"PPRINT xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...\" does not fit into 80 columns");
  const std::string commas =
      "A,B,C,D,E,F,G,H,I,J,K,L,M,N,O,P,Q,R,S,T,U,V,W,X,Y,Z,A,B,C,D,E,F,G,H,I,J";
  for (const char* text : {"PPRINT ", "$$ ", "REMARK ", "PARTNO ", "TPRINT/", "LETTER/"}) {
    EXPECT_EQ(refusal(withColumns(72), text + commas).substr(0, 10), "the text \"") << text;
  }
  EXPECT_EQ(refusal(withColumns(72), "POINTS/" + commas), "");
}

TEST(ConsumerLines, WordsOfTheTableHaveTexts) {
  const std::string line = "MSG/" + std::string(40, 'x') + ',' + std::string(40, 'x');
  EXPECT_EQ(written(withColumns(72), {line}).size(), 1U);
  EXPECT_THROW(written(withColumns(72), {line}, {"MSG"}), UnfitLine);
}

TEST(ConsumerLines, LinesAreNumberedInColumns73To80) {
  Consumer consumer = withColumns(72);
  consumer.sequenceStep = 5;
  consumer.endsWithReturn = true;
  const std::string blanks(63, ' ');
  EXPECT_EQ(written(consumer, {"RAPID", "A/" + std::string(60, '1') + "," + std::string(20, '2')}),
            (LineList{"RAPID" + std::string(67, ' ') + "00000005\r",
                      "A/" + std::string(60, '1') + ",$" + std::string(8, ' ') + "00000010\r\n" +
                          std::string(20, '2') + std::string(52, ' ') + "00000015\r"}));
}

TEST(ConsumerLines, CharacterOrAByteThatIsNoneHasOneColumn) {
  Consumer consumer = withColumns(72);
  consumer.sequenceStep = 1;
  const std::string blanks(64, ' ');
  EXPECT_EQ(
      written(consumer, {"PPRINT \xB0", "PPRINT \xC2\xB0"}),
      (LineList{"PPRINT \xB0" + blanks + "00000001", "PPRINT \xC2\xB0" + blanks + "00000002"}));
}

TEST(ConsumerLines, NumberHasEightDigits) {
  Consumer consumer = withColumns(72);
  consumer.sequenceStep = 9'999'999;
  const LineList ten(10, "A");
  EXPECT_EQ(written(consumer, ten).back().substr(72), "99999990");
  EXPECT_THROW(written(consumer, LineList(11, "A")), UnfitLine);
}

TEST(ConsumerLines, OtherCharactersAreReplacedAndCounted) {
  Consumer consumer;
  consumer.characters = Consumer::Characters::Ascii;
  consumer.replacement = '?';
  Texts sink;
  ConsumerLines lines(consumer, {}, sink);
  for (const char* line : {"PPRINT 90\xC2\xB0", "A\tB", "PPRINT \xC2\xB0\xFF"}) lines.write(line);
  EXPECT_EQ(sink.texts, (LineList{"PPRINT 90?", "A?B", "PPRINT ??"}));
  std::string counts;
  for (const auto& [character, count, line] : lines.replaced()) {
    counts += character + ' ' + std::to_string(count) + '@' + std::to_string(line) + ' ';
  }
  EXPECT_EQ(counts, "\xC2\xB0 2@1 \t 1@2 \xFF 1@3 ");
}

TEST(ConsumerLines, CountsOfReplacedCharactersAreBounded) {
  Consumer consumer;
  consumer.characters = Consumer::Characters::Ascii;
  consumer.replacement = '?';
  Texts sink;
  ConsumerLines lines(consumer, {}, sink);
  for (int byte = 0; byte < 2000; ++byte) {
    const char character[] = {'\xE4', static_cast<char>(0x80 + byte / 64),
                              static_cast<char>(0x80 + byte % 64)};
    lines.write({character, sizeof character});
  }
  EXPECT_EQ(lines.replaced().size(), 101U);
  EXPECT_EQ(lines.replaced().back().character, "");
  EXPECT_EQ(lines.replaced().back().count, 1900);
}

TEST(ConsumerLines, CapitalsReplaceSmallLetters) {
  Consumer consumer;
  consumer.characters = Consumer::Characters::Capitals;
  EXPECT_EQ(written(consumer, {"pprint It's 1+2-3*4/5,(6).$=7"}),
            LineList{"PPRINT IT'S 1+2-3*4/5,(6).$=7"});
  EXPECT_EQ(refusal(consumer, "PPRINT A_B"), "its reader does not take '_'; write another one");
  consumer.replacement = '.';
  EXPECT_EQ(written(consumer, {"PPRINT A_B;"}), LineList{"PPRINT A.B."});
}

TEST(ConsumerLines, OtherCharactersAreRefusedWithoutAReplacement) {
  Consumer consumer;
  consumer.characters = Consumer::Characters::Ascii;
  EXPECT_EQ(refusal(consumer, "PPRINT 90\xC2\xB0"),
            "its reader does not take '\xC2\xB0'; write another one");
  EXPECT_EQ(refusal(consumer, "A\tB"), "its reader does not take the byte 09; write another one");
  EXPECT_EQ(refusal(consumer, "A\xFF"), "its reader does not take the byte FF; write another one");
  EXPECT_EQ(refusal(consumer, "A ~!"), "");
}

TEST(ConsumerLines, LongWordIsRefused) {
  Consumer consumer;
  consumer.longestWord = 6;
  EXPECT_EQ(refusal(consumer, "CYCLE/DRILL,1.123456789,2E+10"), "");
  EXPECT_EQ(refusal(consumer, "HELICAL/1"), "the word \"HELICAL\" has more than 6 letters");
  EXPECT_EQ(refusal(consumer, "A/1,COOLANT2,3"), "the word \"COOLANT2\" has more than 6 letters");
  EXPECT_EQ(refusal(consumer, "PPRINT Understandable"), "");
  EXPECT_EQ(refusal(consumer, "RAPID $$ understandable"), "");
  EXPECT_EQ(refusal(consumer, "PPRINTER Good"), "the word \"PPRINTER\" has more than 6 letters");
}

}  // namespace
}  // namespace host::test
