#include "post/listing/RotaryChain.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/listing/Listings.h"

namespace {

using host::RotaryChain;
using host::Triple;

Triple toolAxis(std::string_view axes, const Triple& words) {
  return rotary(axes).rotary->toolAxis(words);
}

void expectNear(const Triple& actual, const Triple& expected, const std::string& what) {
  for (std::size_t axis = 0; axis < 3; ++axis) {
    EXPECT_NEAR(actual[axis], expected[axis], 1e-9) << what << ", component " << axis;
  }
}

// sin 30 = 1/2, cos 30 = sqrt(3)/2, so that products are 1/4, sqrt(3)/4 and 3/4.
constexpr double kHalf = 0.5;
constexpr double kRoot = 0.86602540378443865;
constexpr double kQuarterRoot = 0.43301270189221933;

TEST(RotaryChain, OneAxisTurnsTheToolAxis) {
  struct Case {
    std::string_view axes;
    Triple words;
    Triple expected;
  };
  const Case cases[] = {
      // A head that turns counterclockwise about X tips the tool from Z towards -Y.
      {"A:head:X", {30.0, 0.0, 0.0}, {0.0, -kHalf, kRoot}},
      {"A:head:-X", {30.0, 0.0, 0.0}, {0.0, kHalf, kRoot}},
      // A table that turns so tips the part, and the tool the other way in the part.
      {"A:table:X", {30.0, 0.0, 0.0}, {0.0, kHalf, kRoot}},
      {"A:table:-X", {30.0, 0.0, 0.0}, {0.0, -kHalf, kRoot}},
      {"B:head:Y", {0.0, 30.0, 0.0}, {kHalf, 0.0, kRoot}},
      {"B:table:Y", {0.0, 30.0, 0.0}, {-kHalf, 0.0, kRoot}},
      // Nothing turns a tool that lies along the axis.
      {"C:head:Z", {0.0, 0.0, 30.0}, {0.0, 0.0, 1.0}},
      {"C:table:Z", {0.0, 0.0, 30.0}, {0.0, 0.0, 1.0}},
      // A word may drive another axis than the usual one.
      {"A:head:Y", {30.0, 0.0, 0.0}, {kHalf, 0.0, kRoot}},
      {"A:head:X", {90.0, 0.0, 0.0}, {0.0, -1.0, 0.0}},
      {"A:head:X", {180.0, 0.0, 0.0}, {0.0, 0.0, -1.0}},
      {"A:head:X", {390.0, 0.0, 0.0}, {0.0, -kHalf, kRoot}},
      {"A:head:X", {-360030.0, 0.0, 0.0}, {0.0, kHalf, kRoot}},
  };
  for (const Case& test : cases) {
    expectNear(toolAxis(test.axes, test.words), test.expected, std::string(test.axes));
  }
}

TEST(RotaryChain, OrderIsFromThePartToTheTool) {
  struct Case {
    std::string_view axes;
    Triple words;
    Triple expected;
  };
  const Case cases[] = {
      // Table C on table A: A tips the tool to (0, 1/2, root) in the frame of C, C = 90 turns the
      // part's X towards Y, and so the tool from Y to X in the part.
      {"C:table:Z,A:table:X", {30.0, 0.0, 90.0}, {kHalf, 0.0, kRoot}},
      {"C:table:Z,A:table:X", {30.0, 0.0, 30.0}, {0.25, kQuarterRoot, kRoot}},
      // Table A on table C: C turns a tool along Z nowhere.
      {"A:table:X,C:table:Z", {30.0, 0.0, 90.0}, {0.0, kHalf, kRoot}},
      // Head C carries head A: A tips to (0, -1/2, root), C = 90 turns that from -Y to X.
      {"C:head:Z,A:head:X", {30.0, 0.0, 90.0}, {kHalf, 0.0, kRoot}},
      {"A:head:X,C:head:Z", {30.0, 0.0, 90.0}, {0.0, -kHalf, kRoot}},
      // Table C, head B: B tips to (1/2, 0, root), C = 90 turns that from X to -Y in the part.
      {"C:table:Z,B:head:Y", {0.0, 30.0, 90.0}, {0.0, -kHalf, kRoot}},
      // All three words.
      {"C:table:Z,A:table:X,B:head:Y", {90.0, 30.0, 0.0}, {kHalf, kRoot, 0.0}},
  };
  for (const Case& test : cases) {
    expectNear(toolAxis(test.axes, test.words), test.expected, std::string(test.axes));
  }
}

TEST(RotaryChain, WordsOfOtherAxesAreNotLookedAt) {
  expectNear(toolAxis("A:head:X", {0.0, 45.0, 60.0}), {0.0, 0.0, 1.0}, "A:head:X");
}

TEST(RotaryChain, NamesTheWordsOfItsAxes) {
  const auto chain = *rotary("C:table:Z,A:table:X").rotary;
  EXPECT_TRUE(chain.names(0));
  EXPECT_FALSE(chain.names(1));
  EXPECT_TRUE(chain.names(2));
}

TEST(RotaryChain, WrongTextGivesItsReason) {
  constexpr std::string_view kHow =
      " names no rotary axis; write WORD:table:AXIS or WORD:head:AXIS, from the part to the tool, "
      "for example C:table:Z,A:table:X";
  struct Case {
    std::string_view text;
    std::string expected;
  };
  const auto unnamed = [&](std::string_view entry) {
    return "'" + std::string(entry) + "'" + std::string(kHow);
  };
  const Case cases[] = {
      {"", unnamed("")},
      {"A", unnamed("A")},
      {"A:table", unnamed("A:table")},
      {"A:table:", unnamed("A:table:")},
      {"A:table:-", unnamed("A:table:-")},
      {"A:table:W", unnamed("A:table:W")},
      {"A:table:XY", unnamed("A:table:XY")},
      {"A:table:X:", unnamed("A:table:X:")},
      {"D:table:X", unnamed("D:table:X")},
      {"a:table:X", unnamed("a:table:X")},
      {":table:X", unnamed(":table:X")},
      {"A:spindle:X", unnamed("A:spindle:X")},
      {"A:table:X,", unnamed("")},
      {"C:table:Z, A:table:X", unnamed(" A:table:X")},
      {"A:table:X,A:head:Y", "the word A is named twice"},
      {"A:head:X,C:table:Z",
       "'C:table:Z' comes after a head; the order is from the part to the tool, tables first"},
  };
  for (const Case& test : cases) {
    std::string reason;
    EXPECT_FALSE(RotaryChain::parse(test.text, reason)) << test.text;
    EXPECT_EQ(reason, test.expected);
  }
}

TEST(ListingReader, RotaryAxesGiveToolAxesBehindOneMultax) {
  EXPECT_EQ(readListing(program("STRAIGHT_TRAVERSE(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n"
                                "STRAIGHT_FEED(4.0, 5.0, 6.0, 30.0, 0.0, 90.0)\n"
                                "STRAIGHT_TRAVERSE(7.0, 8.0, 9.0, -30.0, 0.0, 0.0)\n"),
                        rotary("C:table:Z,A:table:X")),
            "NC_MULTAX_ON\n"
            "NC_RAPID\n"
            "NC_GOTO_VARIABLE_AXIS 1 2 3 axis 0.000000 0.000000 1.000000\n"
            "NC_GOTO_VARIABLE_AXIS 4 5 6 axis 0.500000 0.000000 0.866025\n"
            "NC_RAPID\n"
            "NC_GOTO_VARIABLE_AXIS 7 8 9 axis 0.000000 -0.500000 0.866025\n");
}

TEST(ListingReader, FirstRotaryWordThatNothingNamesIsRefused) {
  constexpr std::string_view kAdvice =
      " moves, but nothing says what it turns; name every rotary axis from the part to the tool, "
      "for example --rotary C:table:Z,A:table:X\n";
  EXPECT_EQ(readListing(program("STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n"
                                "STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0001, 0.0, 0.0)\n")),
            "NC_GOTO 1 2 3\n3:43: the rotary word A" + std::string(kAdvice));
  EXPECT_EQ(readListing(program("STRAIGHT_TRAVERSE(1.0, 2.0, 3.0, 0.0, 0.0, -360.0)\n")),
            "2:57: the rotary word C" + std::string(kAdvice));
  EXPECT_EQ(readListing(program("STRAIGHT_FEED(1.0, 2.0, 3.0, 5.0, 6.0, 7.0)\n"),
                        rotary("C:table:Z,A:table:X")),
            "2:48: the rotary word B" + std::string(kAdvice));
}

}  // namespace
