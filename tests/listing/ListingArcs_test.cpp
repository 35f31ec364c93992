#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/listing/Listings.h"

namespace {

constexpr std::string_view kStart = "STRAIGHT_FEED(10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n";
constexpr std::string_view kArc = "ARC_FEED(0.0, 10.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)";

/// What an arc gives from (10, 0, 0) on; `before` stands between that point and the arc.
std::string arcFrom10(std::string_view arc, std::string_view before = "",
                      const host::ListingOptions& options = {}) {
  const std::string given = readListing(
      program(std::string(kStart) + std::string(before) + std::string(arc) + '\n'), options);
  const std::string start = "NC_GOTO 10 0 0\n";
  return given.starts_with(start) ? given.substr(start.size()) : given;
}

/// The arc's part of the counted calls.
std::string fateOfArc(const std::string& calls, const host::ListingOptions& options = {}) {
  const std::string counts = countCalls(program(calls), options);
  const std::size_t at = counts.find("ARC_FEED");
  const std::size_t line = counts.rfind('\n', at) + 1;
  return counts.substr(line, at - line);
}

TEST(ListingArcs, ArcOfLessThanHalfATurnIsOneCircle) {
  EXPECT_EQ(arcFrom10("ARC_FEED(0.0, 10.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)"),
            "NC_CIRCLE1 along 0 1 0 center 0 0 0 radius 10 normal 0 0 1 to 0 10 0 at 0 10 0\n");
  EXPECT_EQ(arcFrom10("ARC_FEED(0.0, -10.0, 0.0, 0.0, -1, 0.0, 0.0, 0.0, 0.0)"),
            "NC_CIRCLE1 along 0 -1 0 center 0 0 0 radius 10 normal 0 0 1 to 0 -10 0 at 0 -10 0\n");
  // From 0 to 36.87 degrees about (5, 0, 0), the way of a triangle of 3, 4 and 5.
  EXPECT_EQ(arcFrom10("ARC_FEED(9.0, 3.0, 5.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)"),
            "NC_CIRCLE1 along 0 1 0 center 5 0 0 radius 5 normal 0 0 1 to 9 3 0 at 9 3 0\n");
}

TEST(ListingArcs, LongerArcIsSeveralPiecesOfAThirdOfATurnAtMost) {
  EXPECT_EQ(arcFrom10("ARC_FEED(-10.0, 0.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)"),
            "NC_CIRCLE1 along 0 1 0 center 0 0 0 radius 10 normal 0 0 1 to 0 10 0 at 0 10 0\n"
            "NC_CIRCLE1 along -1 0 0 center 0 0 0 radius 10 normal 0 0 1 to -10 0 0 at -10 0 0\n");
  EXPECT_EQ(arcFrom10("ARC_FEED(0.0, 10.0, 0.0, 0.0, -1, 0.0, 0.0, 0.0, 0.0)"),
            "NC_CIRCLE1 along 0 -1 0 center 0 0 0 radius 10 normal 0 0 1 to 0 -10 0 at 0 -10 0\n"
            "NC_CIRCLE1 along -1 0 0 center 0 0 0 radius 10 normal 0 0 1 to -10 0 0 at -10 0 0\n"
            "NC_CIRCLE1 along 0 1 0 center 0 0 0 radius 10 normal 0 0 1 to 0 10 0 at 0 10 0\n");
}

TEST(ListingArcs, ArcThatEndsWhereItBeginsIsAWholeTurn) {
  EXPECT_EQ(arcFrom10("ARC_FEED(10.0, 0.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)"),
            "NC_CIRCLE1 along 0 1 0 center 0 0 0 radius 10 normal 0 0 1 to -5 8.660254 0 "
            "at -5 8.660254 0\n"
            "NC_CIRCLE1 along -0.866025 -0.5 0 center 0 0 0 radius 10 normal 0 0 1 "
            "to -5 -8.660254 0 at -5 -8.660254 0\n"
            "NC_CIRCLE1 along 0.866025 -0.5 0 center 0 0 0 radius 10 normal 0 0 1 to 10 0 0 "
            "at 10 0 0\n");
}

TEST(ListingArcs, FurtherTurnsArePiecesToo) {
  const auto pieces = [](std::string_view arc) {
    const std::string given = arcFrom10(arc);
    int count = 0;
    for (const char letter : given) count += letter == '\n' ? 1 : 0;
    return count;
  };
  EXPECT_EQ(pieces("ARC_FEED(10.0, 0.0, 0.0, 0.0, 2, 0.0, 0.0, 0.0, 0.0)"), 6);
  EXPECT_EQ(pieces("ARC_FEED(0.0, 10.0, 0.0, 0.0, 2, 0.0, 0.0, 0.0, 0.0)"), 4);
  EXPECT_EQ(pieces("ARC_FEED(0.0, 10.0, 0.0, 0.0, -3, 0.0, 0.0, 0.0, 0.0)"), 9);
}

TEST(ListingArcs, OtherPlanesHaveCylinders) {
  EXPECT_EQ(arcFrom10("ARC_FEED(10.0, 0.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)",
                      "SELECT_PLANE(CANON_PLANE_XZ)\n"),
            "NC_CYLNDR1 along 0 0 -1 center 0 0 0 radius 10 normal 0 1 0 to 0 0 -10 at 0 0 -10\n"
            "NC_CYLNDR1 along -1 0 0 center 0 0 0 radius 10 normal 0 1 0 to -10 0 0 at -10 0 0\n"
            "NC_CYLNDR1 along 0 0 1 center 0 0 0 radius 10 normal 0 1 0 to 0 0 10 at 0 0 10\n");
  EXPECT_EQ(readListing(program("SELECT_PLANE(CANON_PLANE_YZ)\n"
                                "STRAIGHT_TRAVERSE(7.0, 4.0, 2.0, 0.0, 0.0, 0.0)\n"
                                "ARC_FEED(2.0, 4.0, 2.0, 2.0, 1, 7.0, 0.0, 0.0, 0.0)\n")),
            "NC_RAPID\nNC_GOTO 7 4 2\n"
            "NC_CYLNDR1 along 0 0 1 center 7 2 2 radius 2 normal 1 0 0 to 7 2 4 at 7 2 4\n");
  EXPECT_EQ(arcFrom10(kArc, "SELECT_PLANE(CANON_PLANE_XZ)\nSELECT_PLANE(CANON_PLANE_XY)\n"),
            arcFrom10(kArc));
}

TEST(ListingArcs, ArcThatRisesIsAHelix) {
  EXPECT_EQ(arcFrom10("ARC_FEED(10.0, 0.0, 0.0, 0.0, 3, -3.0, 0.0, 0.0, 0.0)"),
            "NC_HELICAL_INTERPOLATION along 0 1 0 center 0 0 0 radius 10 axis 0 0 -1 "
            "from 10 0 0 to 10 0 -3 pitch 1 at 10 0 -3\n");
  EXPECT_EQ(arcFrom10("ARC_FEED(0.0, -10.0, 0.0, 0.0, -1, 0.5, 0.0, 0.0, 0.0)"),
            "NC_HELICAL_INTERPOLATION along 0 -1 0 center 0 0 0 radius 10 axis 0 0 1 "
            "from 10 0 0 to 0 -10 0.5 pitch 2 at 0 -10 0.5\n");
}

TEST(ListingArcs, NextArcBeginsWhereTheLastOneEnded) {
  EXPECT_EQ(
      arcFrom10("ARC_FEED(-10.0, 0.0, 0.0, 0.0, -1, 0.0, 0.0, 0.0, 0.0)", std::string(kArc) + '\n'),
      "NC_CIRCLE1 along 0 1 0 center 0 0 0 radius 10 normal 0 0 1 to 0 10 0 at 0 10 0\n"
      "NC_CIRCLE1 along 1 0 0 center 0 0 0 radius 10 normal 0 0 1 to 10 0 0 at 10 0 0\n"
      "NC_CIRCLE1 along 0 -1 0 center 0 0 0 radius 10 normal 0 0 1 to 0 -10 0 at 0 -10 0\n"
      "NC_CIRCLE1 along -1 0 0 center 0 0 0 radius 10 normal 0 0 1 to -10 0 0 at -10 0 0\n");
}

TEST(ListingArcs, FeedRateIsToldBeforeAnArc) {
  EXPECT_EQ(arcFrom10(kArc, "SET_FEED_RATE(120.0)\n"),
            "NC_FEEDRATE 120 LINEARFEEDRATE\n"
            "NC_CIRCLE1 along 0 1 0 center 0 0 0 radius 10 normal 0 0 1 to 0 10 0 at 0 10 0\n");
}

TEST(ListingArcs, ArcIsConverted) {
  host::ListingOptions options;
  options.unit = host::LengthUnit::Millimetre;
  EXPECT_EQ(readListing(program("USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
                                "STRAIGHT_FEED(1.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                "ARC_FEED(0.0, 1.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)\n"),
                        options),
            "NC_GOTO 25.4 0 0\n"
            "NC_CIRCLE1 along 0 1 0 center 0 0 0 radius 25.4 normal 0 0 1 to 0 25.4 0 "
            "at 0 25.4 0\n");
}

TEST(ListingArcs, RadiiMayDifferAsRoundingMakesThem) {
  EXPECT_EQ(arcFrom10("ARC_FEED(0.0, 10.0029, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)"),
            "NC_CIRCLE1 along 0 1 0 center 0 0 0 radius 10 normal 0 0 1 to 0 10.0029 0 "
            "at 0 10.0029 0\n");
  EXPECT_EQ(arcFrom10("ARC_FEED(0.0, 10.0031, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)"), "");
}

TEST(ListingArcs, ArcThatCannotBeSaidIsLost) {
  struct Case {
    std::string_view subject, calls;
  };
  const std::vector<Case> cases = {
      {"unknown start", ""},
      {"start lost with a move", "STRAIGHT_FEED(10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\nNURBS_FEED(5)\n"},
      {"start moved by a tool offset",
       "STRAIGHT_FEED(10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
       "USE_TOOL_LENGTH_OFFSET(0.0 0.0 5.0, 0.0 0.0 0.0, 0.0 0.0 0.0)\n"},
      {"start moved by an offset",
       "STRAIGHT_FEED(10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
       "SET_G92_OFFSET(0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"},
      {"axes that the text lacks",
       "STRAIGHT_FEED(10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\nSELECT_PLANE(CANON_PLANE_UV)\n"},
      {"other radius", "STRAIGHT_FEED(10.1, 0.0, 0.0, 0.0, 0.0, 0.0)\n"},
      {"start in the centre", "STRAIGHT_FEED(0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"},
  };
  for (const auto& [subject, calls] : cases) {
    EXPECT_EQ(fateOfArc(std::string(calls) + std::string(kArc) + '\n'), "lost ") << subject;
  }
  EXPECT_EQ(fateOfArc(std::string(kStart) + std::string(kArc) + '\n'), "move ");
  EXPECT_EQ(fateOfArc(std::string(kStart) + std::string(kArc) + '\n', rotary("A:table:X")),
            "lost ");
  for (const std::string_view turns : {"0", "1001", "-1001", "-2147483648", "2147483647"}) {
    EXPECT_EQ(fateOfArc(std::string(kStart) + "ARC_FEED(0.0, 10.0, 0.0, 0.0, " +
                        std::string(turns) + ", 0.0, 0.0, 0.0, 0.0)\n"),
              "lost ")
        << turns;
  }
}

TEST(ListingArcs, RotaryWordOfAnArcIsRefusedLikeThatOfAMove) {
  EXPECT_EQ(arcFrom10("ARC_FEED(0.0, 10.0, 0.0, 0.0, 1, 0.0, 0.0, 15.0, 0.0)"),
            "3:57: the rotary word B moves, but nothing says what it turns; name every rotary axis "
            "from the part to the tool, for example --rotary C:table:Z,A:table:X\n");
}

}  // namespace
