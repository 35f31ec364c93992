#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "tests/listing/Listings.h"

namespace {

using host::LengthUnit;

constexpr std::string_view kFeed = "STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n";
constexpr std::string_view kTraverse = "STRAIGHT_TRAVERSE(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n";

/// Calls with a "|" for a move at feed rate and a ">" for a traverse, one a line.
std::string calls(std::string_view text) {
  std::string listed;
  for (const char letter : text) {
    if (letter == '|') {
      listed += kFeed;
    } else if (letter == '>') {
      listed += kTraverse;
    } else {
      listed += letter == ';' ? '\n' : letter;
    }
  }
  return listed;
}

/// The feed rates of a listing, and the moves between them, in the same notation.
std::string feeds(std::string_view text, const host::ListingOptions& options = {}) {
  std::string given = readListing(program(calls(text)), options);
  const auto replace = [&given](std::string_view from, std::string_view to) {
    for (std::size_t at = 0; (at = given.find(from, at)) != std::string::npos;) {
      given.replace(at, from.size(), to);
    }
  };
  replace("NC_RAPID\nNC_GOTO 1 2 3\n", ">");
  replace("NC_GOTO 1 2 3\n", "|");
  replace("NC_FEEDRATE ", "");
  replace(" LINEARFEEDRATE\n", "/min;");
  replace(" ANGULARFEEDRATE\n", "/rev;");
  return given;
}

TEST(ListingFeed, RateIsToldBeforeTheNextMoveAtFeedRate) {
  EXPECT_EQ(feeds("SET_FEED_RATE(300.0);|"), "300/min;|");
  EXPECT_EQ(feeds("SET_FEED_RATE(300.0);>>||"), ">>300/min;||");
  EXPECT_EQ(feeds("SET_FEED_RATE(300.0);>"), ">");
  EXPECT_EQ(feeds("SET_FEED_RATE(0.1250);|"), "0.125/min;|");
}

TEST(ListingFeed, ListingWithoutARateTellsNone) { EXPECT_EQ(feeds("||"), "||"); }

TEST(ListingFeed, RateIsToldAgainOnlyWhereItIsAnother) {
  EXPECT_EQ(feeds("SET_FEED_RATE(300.0);|SET_FEED_RATE(300.0);|"), "300/min;||");
  EXPECT_EQ(feeds("SET_FEED_RATE(300.0);|>|"), "300/min;|>|");
  EXPECT_EQ(feeds("SET_FEED_RATE(300.0);|SET_FEED_RATE(400.0);SET_FEED_RATE(300.0);|"),
            "300/min;||");
  EXPECT_EQ(feeds("SET_FEED_RATE(300.0);|SET_FEED_RATE(300.0001);|"), "300/min;|300.0001/min;|");
}

TEST(ListingFeed, RateOfNoMoveIsNotTold) {
  EXPECT_EQ(feeds("SET_FEED_RATE(300.0);|SET_FEED_RATE(0.0);"), "300/min;|");
  EXPECT_EQ(feeds("SET_FEED_RATE(0.0);|"), "0/min;|");
}

TEST(ListingFeed, ModeDecidesTheKindOfTheRate) {
  EXPECT_EQ(feeds("SET_FEED_MODE(0, 1);SET_FEED_RATE(0.0);SET_FEED_RATE(0.2);||"), "0.2/rev;||");
  EXPECT_EQ(feeds("SET_FEED_RATE(100.0);|SET_FEED_MODE(0, 1);SET_FEED_RATE(0.1);|"
                  "SET_FEED_MODE(0, 0);SET_FEED_RATE(100.0);|"),
            "100/min;|0.1/rev;|100/min;|");
  EXPECT_EQ(feeds("SET_FEED_RATE(1.0);|SET_FEED_MODE(0, 1);|"), "1/min;|1/rev;|");
}

TEST(ListingFeed, RateIsInTheUnitOfItsPlace) {
  // Feed rates are kept by the machine as speeds: a unit that is named later does not change them.
  EXPECT_EQ(readListing(program("USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
                                "SET_FEED_RATE(10.0)\n"
                                "STRAIGHT_FEED(1.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                "USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
                                "STRAIGHT_FEED(50.8, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                "SET_FEED_RATE(254.0)\n"
                                "STRAIGHT_FEED(76.2, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                "SET_FEED_RATE(127.0)\n"
                                "STRAIGHT_FEED(76.2, 0.0, 0.0, 0.0, 0.0, 0.0)\n")),
            "NC_FEEDRATE 10 LINEARFEEDRATE\n"
            "NC_GOTO 1 0 0\n"
            "NC_GOTO 2 0 0\n"
            "NC_GOTO 3 0 0\n"
            "NC_FEEDRATE 5 LINEARFEEDRATE\n"
            "NC_GOTO 3 0 0\n");
  // What rs274 prints for "F10 G20" in one block: ten millimetres per minute.
  EXPECT_EQ(readListing(program("SET_FEED_RATE(10.0)\n"
                                "USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
                                "STRAIGHT_FEED(1.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"),
                        {LengthUnit::Millimetre, {}}),
            "NC_FEEDRATE 10 LINEARFEEDRATE\nNC_GOTO 25.4 0 0\n");
}

TEST(ListingFeed, WordsOfTheDocumentNameTheUnit) {
  constexpr std::string_view kRates =
      "SET_FEED_RATE(254.0)\nSTRAIGHT_FEED(25.4, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
      "SET_FEED_MODE(0, 1)\n"
      "SET_FEED_RATE(0.508)\nSTRAIGHT_FEED(25.4, 0.0, 0.0, 0.0, 0.0, 0.0)\n";
  struct Case {
    std::string_view subject, perMinute, perRevolution;
    std::optional<LengthUnit> minuteWord, revolutionWord;
  };
  const Case cases[] = {
      {"none is named", "10", "0.02", {}, {}},
      {"MMPM, MMPR", "254", "0.508", LengthUnit::Millimetre, LengthUnit::Millimetre},
      {"IPM, IPR", "10", "0.02", LengthUnit::Inch, LengthUnit::Inch},
      {"MMPM, IPR", "254", "0.02", LengthUnit::Millimetre, LengthUnit::Inch},
  };
  for (const auto& [subject, perMinute, perRevolution, minuteWord, revolutionWord] : cases) {
    host::ListingOptions options;
    options.unit = LengthUnit::Inch;
    options.vocabulary.feedPerMinute = minuteWord;
    options.vocabulary.feedPerRevolution = revolutionWord;
    EXPECT_EQ(readListing(program(kRates), options),
              "NC_FEEDRATE " + std::string(perMinute) + " LINEARFEEDRATE\nNC_GOTO 1 0 0\n" +
                  "NC_FEEDRATE " + std::string(perRevolution) + " ANGULARFEEDRATE\nNC_GOTO 1 0 0\n")
        << subject;
  }
}

TEST(ListingFeed, MoveThatFollowsTheSpindleHasThePitchAsItsRate) {
  constexpr std::string_view kThread =
      "SET_FEED_RATE(100.0);|START_SPEED_FEED_SYNC(1.500000,0);|>|STOP_SPEED_FEED_SYNCH();>|";
  EXPECT_EQ(feeds(kThread), "100/min;|1.5/rev;|>|>100/min;|");
  EXPECT_EQ(countCalls(program(calls(kThread))),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "line SET_FEED_RATE 1 from 2\n"
            "move STRAIGHT_FEED 4 from 3\n"
            "says more START_SPEED_FEED_SYNC 1 from 4\n"
            "move STRAIGHT_TRAVERSE 2 from 6\n"
            "line STOP_SPEED_FEED_SYNCH 1 from 8\n"
            "other FINISH 1 from 11\n");
  EXPECT_EQ(countCalls(program("START_SPEED_FEED_SYNCH()\n")),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "says more START_SPEED_FEED_SYNCH 1 from 2\n"
            "other FINISH 1 from 3\n");
}

TEST(ListingFeed, RevolutionsOfAnotherSpindleSayMoreThanTheText) {
  EXPECT_EQ(countCalls(program("SET_FEED_MODE(1, 1)\nSET_FEED_MODE(1, 0)\n")),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "says more SET_FEED_MODE 1 from 2\n"
            "line SET_FEED_MODE 1 from 3\n"
            "other FINISH 1 from 4\n");
}

TEST(ListingFeed, MoveThatOnlyTurnsHasARateInDegreesWhichTheTextLacks) {
  const std::string listing = program(
      "SET_FEED_RATE(100.0)\n"
      "STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n"
      "SET_FEED_RATE(360.0)\n"
      "STRAIGHT_FEED(1.0, 2.0, 3.0, 90.0, 0.0, 0.0)\n"
      "STRAIGHT_FEED(1.0, 2.0, 3.0, 90.0, 0.0, 0.0)\n"
      "STRAIGHT_TRAVERSE(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n");
  EXPECT_EQ(readListing(listing, rotary("A:table:X")),
            "NC_MULTAX_ON\n"
            "NC_FEEDRATE 100 LINEARFEEDRATE\n"
            "NC_GOTO_VARIABLE_AXIS 1 2 3 axis 0.000000 0.000000 1.000000\n"
            "NC_GOTO_VARIABLE_AXIS 1 2 3 axis 0.000000 1.000000 0.000000\n"
            "NC_FEEDRATE 360 LINEARFEEDRATE\n"
            "NC_GOTO_VARIABLE_AXIS 1 2 3 axis 0.000000 1.000000 0.000000\n"
            "NC_RAPID\n"
            "NC_GOTO_VARIABLE_AXIS 1 2 3 axis 0.000000 0.000000 1.000000\n");
  EXPECT_EQ(countCalls(listing, rotary("A:table:X")),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "line SET_FEED_RATE 2 from 2\n"
            "move STRAIGHT_FEED 3 from 3\n"
            "says more STRAIGHT_FEED 1 from 5\n"
            "move STRAIGHT_TRAVERSE 1 from 7\n"
            "other FINISH 1 from 8\n");
}

}  // namespace
