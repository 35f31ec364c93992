#include "post/text/NearWords.h"

#include <gtest/gtest.h>

#include <string>

namespace host {
namespace {

TEST(NearWords, OneMistakeIsALetterOutInReplacedOrSwapped) {
  for (const char* const wrong : {"OADTL", "LOADT", "LOATL", "LLOADTL", "LOADTLL", "LOXADTL",
                                  "XOADTL", "LOAXTL", "LOADTX", "OLADTL", "LOADLT", "loadtl"}) {
    EXPECT_TRUE(isOneMistake("LOADTL", wrong)) << wrong;
    EXPECT_TRUE(isOneMistake(wrong, "LOADTL")) << wrong;
  }
  for (const char* const other :
       {"LOADTL", "LOAD", "LOADTLXX", "XXADTL", "LADOTL", "AOLDTL", "OADT", "LXOADTLX", ""}) {
    EXPECT_FALSE(isOneMistake("LOADTL", other)) << other;
    EXPECT_FALSE(isOneMistake(other, "LOADTL")) << other;
  }
  EXPECT_TRUE(isOneMistake("", "A"));
}

TEST(NearWords, SearchFindsWhatIsOneMistakeAway) {
  const NearWords words({"GOTO", "LOADTL", "ON", "OFF", "LOADTL"});
  const auto any = [](std::string_view) { return true; };
  EXPECT_EQ(words.near("LAODTL", any), "LOADTL");
  EXPECT_EQ(words.near("goto", any), "GOTO");
  EXPECT_EQ(words.near("OF", any), "OFF");
  EXPECT_EQ(words.near("OF", [](std::string_view word) { return word == "ON"; }), "ON");
  EXPECT_EQ(words.near("OF", [](std::string_view) { return false; }), "");
  EXPECT_EQ(words.near("ELSE", any), "");
  EXPECT_EQ(words.near("", any), "");
  EXPECT_EQ(NearWords().near("GOTO", any), "");
}

TEST(NearWords, WordsOfMoreThan64LettersAreNotLookedFor) {
  const std::string longest(64, 'A');
  const std::string longer(65, 'A');
  const auto any = [](std::string_view) { return true; };
  EXPECT_EQ(NearWords({longest}).near(longest.substr(1), any), longest);
  EXPECT_EQ(NearWords({longest}).near(longer, any), "");
  EXPECT_EQ(NearWords({longer}).near(longest, any), "");
}

}  // namespace
}  // namespace host
