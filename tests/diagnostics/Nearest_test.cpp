#include <gtest/gtest.h>

#include <array>
#include <string>

#include "post/text/SpellingSuggestion.h"

namespace host {
namespace {

constexpr std::array<std::string_view, 3> kCommands = {"check", "list", "post"};

TEST(Nearest, MissingLetterIsFound) { EXPECT_EQ(nearest("chek", kCommands), "check"); }

TEST(Nearest, SwappedLettersAreFound) { EXPECT_EQ(nearest("psot", kCommands), "post"); }

TEST(Nearest, FirstOfEqualsIsGiven) {
  constexpr std::array<std::string_view, 2> kWords = {"pose", "post"};
  EXPECT_EQ(nearest("posh", kWords), "pose");
}

TEST(Nearest, WordWithoutItsPrefixIsFound) {
  constexpr std::array<std::string_view, 4> kNames = {"FROM", "NC_FROM", "NC_GOTO", "MFG_XPOINT"};
  EXPECT_EQ(nearest("GOTO", kNames), "NC_GOTO");
  EXPECT_EQ(nearest("goto", kNames), "NC_GOTO");
  EXPECT_EQ(nearest("XPOINT", kNames), "MFG_XPOINT");
  EXPECT_EQ(nearest("POINT", kNames), "");
  EXPECT_EQ(nearest("", kNames), "");
}

TEST(Nearest, ExactWordIsItself) { EXPECT_EQ(nearest("list", kCommands), "list"); }

TEST(Nearest, CapitalsCountAsSmall) {
  EXPECT_EQ(nearest("CHECK", kCommands), "check");
  EXPECT_EQ(nearest("PSOt", kCommands), "post");
  constexpr std::array<std::string_view, 1> kBesideTheLetters = {"@[`{"};
  EXPECT_EQ(nearest("`{@[", kBesideTheLetters), "");
}

TEST(Nearest, FarWordGivesNothing) { EXPECT_EQ(nearest("translate", kCommands), ""); }

TEST(Nearest, TwoEditsInAShortWordAreTooMany) {
  EXPECT_EQ(nearest("most", kCommands), "post");
  EXPECT_EQ(nearest("mast", kCommands), "");
}

TEST(Nearest, HugeWordGivesNothing) {
  EXPECT_EQ(nearest(std::string(100'000, 'c'), kCommands), "");
}

TEST(Nearest, NoCandidatesGiveNothing) { EXPECT_EQ(nearest("list", {}), ""); }

}  // namespace
}  // namespace host
