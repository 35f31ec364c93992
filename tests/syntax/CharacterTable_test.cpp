#include <gtest/gtest.h>

#include <string>

#include "language/syntax/Characters.h"

namespace ppword {
namespace {

constexpr CharacterTable kEnds("/,=");

TEST(CharacterTable, HoldsExactlyItsCharacters) {
  for (int code = 0; code < 256; ++code) {
    const char character = static_cast<char>(code);
    EXPECT_EQ(kEnds.holds(character), code == '/' || code == ',' || code == '=') << code;
  }
  EXPECT_TRUE(CharacterTable("\xC3").holds('\xC3'));
}

TEST(CharacterTable, FirstIsLookedForFromAPlaceOn) {
  EXPECT_EQ(kEnds.firstIn("GOTO/1,2"), 4);
  EXPECT_EQ(kEnds.firstIn("GOTO/1,2", 4), 4);
  EXPECT_EQ(kEnds.firstIn("GOTO/1,2", 5), 6);
  EXPECT_EQ(kEnds.firstIn("GOTO/1,2", 7), 8);
  EXPECT_EQ(kEnds.firstIn("GOTO/1,2", 8), 8);
  EXPECT_EQ(kEnds.firstIn(""), 0);
}

TEST(CharacterTable, FirstOtherIsLookedForFromAPlaceOn) {
  EXPECT_EQ(kEnds.firstOtherIn("//A,"), 2);
  EXPECT_EQ(kEnds.firstOtherIn("//A,", 3), 4);
  EXPECT_EQ(kEnds.firstOtherIn("A"), 0);
  EXPECT_EQ(kEnds.firstOtherIn(""), 0);
}

TEST(CharacterTable, BeginningEndsWithTheLast) {
  EXPECT_EQ(kEnds.throughLastIn("GOTO/1,2"), 7);
  EXPECT_EQ(kEnds.throughLastIn("GOTO/"), 5);
  EXPECT_EQ(kEnds.throughLastIn("GOTO"), 0);
  EXPECT_EQ(kEnds.throughLastIn(""), 0);
}

}  // namespace
}  // namespace ppword
