// Blocks of NC programs: their words, their O-words and their numbers.

#include "post/text/NcBlock.h"

#include <gtest/gtest.h>

#include <charconv>
#include <iterator>
#include <string>

namespace {

using host::NcBlock;
using host::numberedBlock;

std::string wordsOf(std::string_view line) {
  std::string text;
  for (const host::NcWord& word : NcBlock(line).words()) {
    char value[40];
    const auto end =
        std::to_chars(std::begin(value), std::end(value), word.value, std::chars_format::fixed, 1)
            .ptr;
    text += text.empty() ? "" : " ";
    (text += word.letter).append(value, end);
  }
  return text;
}

TEST(NcBlock, WordsAreThoseOutsideOfCommentsAndExpressions) {
  EXPECT_EQ(wordsOf("G53 G0 Z-1.5"), "g53.0 g0.0 z-1.5");
  EXPECT_EQ(wordsOf("N10 g 5 3 G00Z+.5"), "n10.0 g53.0 g0.0 z0.5");
  EXPECT_EQ(wordsOf("G0 (G53) X1 ; G28"), "g0.0 x1.0");
  EXPECT_EQ(wordsOf("(G53 not closed"), "");
  EXPECT_EQ(wordsOf("#<g53> = 28 G0 X[#<g30> * g28]"), "g0.0");
  EXPECT_EQ(wordsOf("o100 if [#1 GT 5]"), "");
  EXPECT_EQ(wordsOf("#53=28"), "");
  EXPECT_EQ(wordsOf("X#1 Y#<a> M6"), "m6.0");
  EXPECT_EQ(wordsOf("G"), "");
  EXPECT_EQ(wordsOf("G- Ginf Xnan"), "");
  EXPECT_EQ(wordsOf("[[[ G53"), "");
  EXPECT_EQ(wordsOf(""), "");
}

TEST(NcBlock, CalledAndDefinedNamesAreThoseOfOWords) {
  EXPECT_EQ(NcBlock("o<My Sub> call [3]").called(), "mysub");
  EXPECT_EQ(NcBlock("/N10 O100 CALL").called(), "100");
  EXPECT_EQ(NcBlock("o#1 call").called(), "#");
  EXPECT_EQ(NcBlock("o[#1+1] call").called(), "#");
  EXPECT_EQ(NcBlock("M98 P77 L2").called(), "77");
  EXPECT_EQ(NcBlock("M98 P#1").called(), "#");
  EXPECT_EQ(NcBlock("o100 if [1]").called(), "");
  EXPECT_EQ(NcBlock("(o100 call)").called(), "");
  EXPECT_EQ(NcBlock("o<never closed call").called(), "");
  EXPECT_EQ(NcBlock("G1 X1").called(), "");
  EXPECT_EQ(NcBlock("o100 sub").defined(), "100");
  EXPECT_EQ(NcBlock("N3 o<a> sub").defined(), "a");
  EXPECT_EQ(NcBlock("o100 endsub").defined(), "");
}

TEST(NcBlock, NumberTakesThePlaceOfItsOwn) {
  EXPECT_EQ(numberedBlock("G1 X1", "7"), "N7 G1 X1");
  EXPECT_EQ(numberedBlock("  G1 X1\r", "7"), "N7 G1 X1");
  EXPECT_EQ(numberedBlock("n 1 0.5 G1 X1", "7"), "N7 G1 X1");
  EXPECT_EQ(numberedBlock("/N10G1", "7"), "/N7 G1");
  EXPECT_EQ(numberedBlock("/ G1", "7"), "/N7 G1");
  EXPECT_EQ(numberedBlock("(text)", "7"), "N7 (text)");
  EXPECT_EQ(numberedBlock("o100 sub", "7"), "N7 o100 sub");
  EXPECT_EQ(numberedBlock("N", "7"), "N");
  EXPECT_EQ(numberedBlock("NX1", "7"), "NX1");
}

TEST(NcBlock, LinesWithoutABlockStayAsTheyAre) {
  EXPECT_EQ(numberedBlock("", "7"), "");
  EXPECT_EQ(numberedBlock("  \t", "7"), "  \t");
  EXPECT_EQ(numberedBlock("%", "7"), "%");
  EXPECT_EQ(numberedBlock(" % end", "7"), " % end");
}

TEST(NcBlock, BlockThatIsTooLongForANumberHasNone) {
  const std::string longest = "(" + std::string(250, 'x') + ")";
  EXPECT_EQ(numberedBlock(longest, "7"), longest);
  EXPECT_EQ(numberedBlock("N5" + longest.substr(2), "123456"), longest.substr(2));
  EXPECT_EQ(numberedBlock(longest.substr(3), "7"), "N7 " + longest.substr(3));
  EXPECT_EQ(numberedBlock("N5 " + longest, "7"), "N5 " + longest);
}

}  // namespace
