#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "post/listing/ArcMove.h"
#include "tests/listing/Listings.h"

namespace {

double distanceFromSegment(const host::Triple& point, const host::Triple& begin,
                           const host::Triple& end) {
  double along = 0.0;
  double length = 0.0;
  for (std::size_t i = 0; i < 3; ++i) {
    along += (point[i] - begin[i]) * (end[i] - begin[i]);
    length += (end[i] - begin[i]) * (end[i] - begin[i]);
  }
  const double share = std::clamp(along / length, 0.0, 1.0);
  double distance = 0.0;
  for (std::size_t i = 0; i < 3; ++i) {
    const double off = point[i] - begin[i] - share * (end[i] - begin[i]);
    distance += off * off;
  }
  return std::sqrt(distance);
}

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

/// A text with at most six decimals of each number.
std::string cut(const std::string& text) {
  return std::regex_replace(text, std::regex(R"((\.\d{6})\d+)"), "$1");
}

host::ListingOptions inMillimetres() {
  host::ListingOptions options;
  options.unit = host::LengthUnit::Millimetre;
  return options;
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
            "NC_CIRCLE1 along 0 -1 0 center 0 0 0 radius 10 normal 0 0 -1 to 0 -10 0 at 0 -10 0\n");
  // From 0 to 36.87 degrees about (5, 0, 0), the way of a triangle of 3, 4 and 5.
  EXPECT_EQ(arcFrom10("ARC_FEED(9.0, 3.0, 5.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)"),
            "NC_CIRCLE1 along 0 1 0 center 5 0 0 radius 5 normal 0 0 1 to 9 3 0 at 9 3 0\n");
}

TEST(ListingArcs, LongerArcIsSeveralPiecesOfAThirdOfATurnAtMost) {
  EXPECT_EQ(arcFrom10("ARC_FEED(-10.0, 0.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)"),
            "NC_CIRCLE1 along 0 1 0 center 0 0 0 radius 10 normal 0 0 1 to 0 10 0 at 0 10 0\n"
            "NC_CIRCLE1 along -1 0 0 center 0 0 0 radius 10 normal 0 0 1 to -10 0 0 at -10 0 0\n");
  EXPECT_EQ(arcFrom10("ARC_FEED(0.0, 10.0, 0.0, 0.0, -1, 0.0, 0.0, 0.0, 0.0)"),
            "NC_CIRCLE1 along 0 -1 0 center 0 0 0 radius 10 normal 0 0 -1 to 0 -10 0 at 0 -10 0\n"
            "NC_CIRCLE1 along -1 0 0 center 0 0 0 radius 10 normal 0 0 -1 to -10 0 0 at -10 0 0\n"
            "NC_CIRCLE1 along 0 1 0 center 0 0 0 radius 10 normal 0 0 -1 to 0 10 0 at 0 10 0\n");
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
      "NC_CIRCLE1 along 1 0 0 center 0 0 0 radius 10 normal 0 0 -1 to 10 0 0 at 10 0 0\n"
      "NC_CIRCLE1 along 0 -1 0 center 0 0 0 radius 10 normal 0 0 -1 to 0 -10 0 at 0 -10 0\n"
      "NC_CIRCLE1 along -1 0 0 center 0 0 0 radius 10 normal 0 0 -1 to -10 0 0 at -10 0 0\n");
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
  EXPECT_EQ(fateOfArc(std::string(kStart) + "ARC_FEED(0.0, 10.0031, 0.0, 0.0, 1, 0.0, 0, 0, 0)\n"),
            "chords ");
}

TEST(ListingArcs, RadiiOfInchesMayDifferByThreeTenThousandths) {
  const auto fate = [](const std::string& end) {
    return fateOfArc("USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n" + std::string(kStart) +
                     "ARC_FEED(0.0, " + end + ", 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)\n");
  };
  EXPECT_EQ(fate("10.00029"), "move ");
  EXPECT_EQ(fate("9.99971"), "move ");
  EXPECT_EQ(fate("10.00031"), "chords ");
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
      {"axes that the text lacks",
       "STRAIGHT_FEED(10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\nSELECT_PLANE(CANON_PLANE_UV)\n"},
  };
  for (const auto& [subject, calls] : cases) {
    EXPECT_EQ(fateOfArc(std::string(calls) + std::string(kArc) + '\n'), "lost ") << subject;
  }
  EXPECT_EQ(fateOfArc(std::string(kStart) + std::string(kArc) + '\n'), "move ");
  EXPECT_EQ(fateOfArc(std::string(kStart) + "ARC_FEED(0.0, 10.0, 0.0, 0.0, 0, 0.0, 0, 0, 0)\n"),
            "lost ");
}

TEST(ListingArcs, ArcOfTooManyTurnsIsRefused) {
  constexpr std::string_view kError =
      "3:44: ARC_FEED: an arc has at most 1000 turns, unless it is written as a helix\n";
  const auto arc = [](std::string_view turns, std::string_view height) {
    return program(std::string(kStart) + "ARC_FEED(0.0, 10.0, 0.0, 0.0, " + std::string(turns) +
                   ", " + std::string(height) + ", 0.0, 0.0, 0.0)\n");
  };
  host::ListingOptions chords;
  chords.helicesAsChords = true;
  for (const std::string_view turns : {"1001", "-1001", "-2147483648", "2147483647"}) {
    const std::string flat = readListing(arc(turns, "0.0"));
    EXPECT_TRUE(flat.ends_with(kError)) << flat;
    const std::string rising = readListing(arc(turns, "5.0"), chords);
    EXPECT_TRUE(rising.ends_with(kError)) << rising;
    EXPECT_EQ(fateOfArc(std::string(kStart) + "ARC_FEED(0.0, 10.0, 0.0, 0.0, " +
                        std::string(turns) + ", 5.0, 0.0, 0.0, 0.0)\n"),
              "move ")
        << turns;
  }
  EXPECT_EQ(arcFrom10("ARC_FEED(10.0, 0.0, 0.0, 0.0, 1002, -1002.0, 0.0, 0.0, 0.0)"),
            "NC_HELICAL_INTERPOLATION along 0 1 0 center 0 0 0 radius 10 axis 0 0 -1 "
            "from 10 0 0 to 10 0 -1002 pitch 1 at 10 0 -1002\n");
  const std::string most = readListing(arc("1000", "0.0"));
  // 999 whole turns and a quarter, in pieces of a third of a turn at most.
  EXPECT_EQ(std::count(most.begin(), most.end(), '\n'), 1 + 2998);
}

TEST(ListingArcs, WhatACircleCannotSayIsWrittenAsChords) {
  // A spiral from radius 10 to 11: a quarter turn, off by at most h*h/8*|p''|.
  const std::string spiral = "ARC_FEED(0.0, 11.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)\n";
  EXPECT_EQ(fateOfArc(std::string(kStart) + spiral), "chords ");
  host::ListingOptions coarse;
  coarse.chordDeviation = 1.0;
  // A quarter turn in two chords; half-way the radius is 10.5.
  EXPECT_EQ(cut(arcFrom10("ARC_FEED(0.0, 11.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)", "", coarse)),
            "NC_GOTO 7.424621 7.424621 0 0 11 0\n");
  // The feed rate comes before the chords, and the next arc begins at their end.
  EXPECT_EQ(cut(arcFrom10("ARC_FEED(0.0, -11.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)",
                          "SET_FEED_RATE(120.0)\n" + spiral, coarse)),
            "NC_FEEDRATE 120 LINEARFEEDRATE\n"
            "NC_GOTO 7.424621 7.424621 0 0 11 0\n"
            "NC_CIRCLE1 along -1 0 0 center 0 0 0 radius 11 normal 0 0 1 to -11 0 0 at -11 0 0\n"
            "NC_CIRCLE1 along 0 -1 0 center 0 0 0 radius 11 normal 0 0 1 to 0 -11 0 at 0 -11 0\n");
}

TEST(ListingArcs, ArcWithoutRadiusIsALine) {
  EXPECT_EQ(readListing(program("STRAIGHT_FEED(0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                "ARC_FEED(0.0, 0.0, 0.0, 0.0, 1, 2.0, 0.0, 0.0, 0.0)\n")),
            "NC_GOTO 0 0 0\nNC_GOTO 0 0 2\n");
}

TEST(ListingArcs, ArcWithToolAxesIsWrittenAsChords) {
  host::ListingOptions options = rotary("A:table:X");
  options.chordDeviation = 2.0;
  // The word A goes from 89 to 91 while the arc does.
  EXPECT_EQ(cut(readListing(program("STRAIGHT_FEED(10.0, 0.0, 0.0, 89.0, 0.0, 0.0)\n"
                                    "ARC_FEED(0.0, 10.0, 0.0, 0.0, 1, 0.0, 91.0, 0.0, 0.0)\n"),
                            options)),
            "NC_MULTAX_ON\n"
            "NC_GOTO_VARIABLE_AXIS 10 0 0 axis 0.000000 0.999848 0.017452\n"
            "NC_GOTO_VARIABLE_AXIS 7.071067 7.071067 0 axis 0.000000 1.000000 0.000000 0 10 0 "
            "axis 0.000000 0.999848 -0.017452\n");
  EXPECT_EQ(fateOfArc(std::string(kStart) + std::string(kArc) + '\n', options), "chords ");
}

TEST(ListingArcs, HelicesAreChordsWhenAskedFor) {
  host::ListingOptions options;
  options.helicesAsChords = true;
  options.chordDeviation = 2.0;
  EXPECT_EQ(cut(arcFrom10("ARC_FEED(0.0, 10.0, 0.0, 0.0, 1, 3.0, 0.0, 0.0, 0.0)", "", options)),
            "NC_GOTO 7.071067 7.071067 1.5 0 10 3\n");
  EXPECT_EQ(arcFrom10(kArc, "", options), arcFrom10(kArc));
}

/// The greatest distance of a curve from its chords, at 20 places of each. The curve is computed
/// here: radius and height change evenly with the angle, which goes from 0 to `angle`.
double deviationOf(const std::vector<host::ArcPoint>& chords, const host::ArcMove& arc,
                   double angle) {
  double greatest = 0.0;
  double from = 0.0;
  host::Triple begin = arc.start;
  for (const auto& [end, to] : chords) {
    for (int place = 1; place < 20; ++place) {
      const double share = from + (to - from) * place / 20;
      const double radius =
          arc.start[0] + (std::hypot(arc.end[0], arc.end[1]) - arc.start[0]) * share;
      const host::Triple curve{radius * std::cos(angle * share), radius * std::sin(angle * share),
                               arc.start[2] + (arc.end[2] - arc.start[2]) * share};
      greatest = std::max(greatest, distanceFromSegment(curve, begin, end));
    }
    begin = end;
    from = to;
  }
  return greatest;
}

TEST(ListingArcs, ChordsAreWithinTheDeviation) {
  for (const double radius : {0.02, 1.0, 10.0, 5000.0}) {
    for (const double end : {0.5, 0.99, 1.0, 3.0}) {
      for (const int turns : {1, -1, 3}) {
        // Ends a quarter turn after the start.
        const double sense = turns > 0 ? 1.0 : -1.0;
        const double angle =
            sense * (std::abs(turns) - (turns > 0 ? 0.75 : 0.25)) * 2.0 * std::numbers::pi;
        host::ArcMove arc;
        arc.start = {radius, 0.0, 1.0};
        arc.end = {0.0, radius * end, -4.0};
        arc.center = {0.0, 0.0, 1.0};
        arc.turns = turns;
        const auto chords = host::arcChords(arc, 0.01);
        ASSERT_FALSE(chords.empty());
        EXPECT_EQ(chords.back().point, arc.end);
        EXPECT_LE(deviationOf(chords, arc, angle), 0.01) << radius << ' ' << end << ' ' << turns;
        // No more of them than twice as many as a circle of that size needs.
        const double step = std::sqrt(8.0 * 0.01 / (radius * std::max(end, 1.0)));
        EXPECT_LE(static_cast<double>(chords.size()), 2.0 * std::abs(angle) / step + 2.0);
      }
    }
  }
}

TEST(ListingArcs, ArcOfTooManyChordsIsLost) {
  host::ListingOptions options;
  options.chordDeviation = 1e-9;
  EXPECT_EQ(
      fateOfArc(std::string(kStart) + "ARC_FEED(0.0, 11.0, 0.0, 0.0, 9, 0.0, 0, 0, 0)\n", options),
      "lost ");
}

TEST(ListingArcs, WholeTurnAfterAChangeOfUnitsIsNotTakenForATinyArc) {
  // 0.50004 inch is printed as 0.5000, which is 12.7 mm, and then as 12.7010 mm.
  const auto fate = [](const std::string& end) {
    return fateOfArc(
        "USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
        "STRAIGHT_FEED(1.0, 0.5, 0.0, 0.0, 0.0, 0.0)\n"
        "USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
        "ARC_FEED(25.4000, " +
            end + ", 20.4, 12.701, 1, 0.0, 0.0, 0.0, 0.0)\n",
        inMillimetres());
  };
  EXPECT_EQ(fate("12.7010"), "lost ");
  EXPECT_EQ(fate("12.7000"), "lost ");
  EXPECT_EQ(fate("12.7200"), "move ");
  // In one unit both ends are printed alike.
  EXPECT_EQ(fateOfArc(std::string(kStart) + "ARC_FEED(10.0, 0.001, 0.0, 0.0, 1, 0.0, 0, 0, 0)\n"),
            "move ");
}

TEST(ListingArcs, ArcThatRisesByRoundingOnlyIsFlat) {
  const auto instruction = [](const std::string& height) {
    const std::string text = readListing(program("USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
                                                 "STRAIGHT_FEED(0.0, 0.0, 0.1235, 0.0, 0.0, 0.0)\n"
                                                 "USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
                                                 "ARC_FEED(10.0, 0.0, 5.0, 0.0, -1, " +
                                                 height + ", 0.0, 0.0, 0.0)\n"),
                                         inMillimetres());
    const std::size_t at = text.find('\n') + 1;
    return text.substr(at, text.find(' ', at) - at);
  };
  // 0.1235 inch is 3.1369 mm.
  EXPECT_EQ(instruction("3.1358"), "NC_CIRCLE1");
  EXPECT_EQ(instruction("3.1400"), "NC_HELICAL_INTERPOLATION");
}

TEST(ListingArcs, RotaryWordsTurnByADegreeAtMostAlongAChord) {
  host::ListingOptions options = rotary("A:table:X");
  options.chordDeviation = 2.0;
  const std::string text =
      arcFrom10("ARC_FEED(0.0, 10.0, 0.0, 0.0, 1, 0.0, 90.0, 0.0, 0.0)", "", options);
  std::size_t axes = 0;
  for (std::size_t at = text.find(" axis"); at != text.npos; at = text.find(" axis", at + 1)) {
    ++axes;
  }
  EXPECT_EQ(axes, 91U);
}

TEST(ListingArcs, RotaryWordOfAnArcIsRefusedLikeThatOfAMove) {
  EXPECT_EQ(arcFrom10("ARC_FEED(0.0, 10.0, 0.0, 0.0, 1, 0.0, 0.0, 15.0, 0.0)"),
            "3:57: the rotary word B moves, but nothing says what it turns; name every rotary axis "
            "from the part to the tool, for example --rotary C:table:Z,A:table:X\n");
}

}  // namespace
