#include "post/text/Utf8.h"

#include <gtest/gtest.h>

namespace host {
namespace {

TEST(Utf8, CharactersOfOneToFourBytesAreMeasured) {
  EXPECT_EQ(utf8Length("a", 0), 1U);
  EXPECT_EQ(utf8Length("\xC3\xBC", 0), 2U);
  EXPECT_EQ(utf8Length("x\xE2\x82\xAC", 1), 3U);
  EXPECT_EQ(utf8Length("\xF4\x8F\xBF\xBF", 0), 4U);
}

TEST(Utf8, CutCharacterIsNone) {
  EXPECT_EQ(utf8Length("\xE2\x82", 0), 0U);
  EXPECT_EQ(utf8Length("\xE2\x82"
                       "a",
                       0),
            0U);
}

TEST(Utf8, StrayAndImpossibleBytesAreNone) {
  EXPECT_EQ(utf8Length("\x80", 0), 0U);
  EXPECT_EQ(utf8Length("\xFF", 0), 0U);
}

TEST(Utf8, OverlongFormsAreNone) {
  EXPECT_EQ(utf8Length("\xC0\x80", 0), 0U);
  EXPECT_EQ(utf8Length("\xE0\x9F\xBF", 0), 0U);
  EXPECT_EQ(utf8Length("\xF0\x8F\xBF\xBF", 0), 0U);
}

TEST(Utf8, SurrogatesAndPointsBeyondTheLastAreNone) {
  EXPECT_EQ(utf8Length("\xED\xA0\x80", 0), 0U);
  EXPECT_EQ(utf8Length("\xF4\x90\x80\x80", 0), 0U);
}

TEST(Utf8, CodePointIsPutTogether) {
  EXPECT_EQ(codePoint("A"), U'A');
  EXPECT_EQ(codePoint("\xE2\x82\xAC"), U'\u20AC');
  EXPECT_EQ(codePoint("\xF0\x9F\x94\xA7"), U'\U0001F527');
}

TEST(Utf8, WholeTextIsTested) {
  EXPECT_TRUE(isUtf8(""));
  EXPECT_TRUE(isUtf8("M\xC3\xBCller"));
  EXPECT_FALSE(isUtf8("M\xFCller"));
}

}  // namespace
}  // namespace host
