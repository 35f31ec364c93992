#include "post/listing/ListingReader.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <variant>

#include "post/toolpath/LineReader.h"
#include "tests/listing/Listings.h"
#include "tests/support/InputFile.h"

namespace {

TEST(ListingReader, FeedGivesGoto) {
  EXPECT_EQ(
      readListing(program("STRAIGHT_FEED(1.0000, -2.5000, 0.1250, 0.0000, 0.0000, 0.0000)\n")),
      "NC_GOTO 1 -2.5 0.125\n");
}

TEST(ListingReader, EveryTraverseGivesRapidOfItsOwn) {
  EXPECT_EQ(
      readListing(program("STRAIGHT_TRAVERSE(1.0000, 0.0000, 0.0000, 0.0000, 0.0000, 0.0000)\n"
                          "STRAIGHT_TRAVERSE(2.0000, 0.0000, 0.0000, 0.0000, 0.0000, 0.0000)\n"
                          "STRAIGHT_FEED(3.0000, 0.0000, 0.0000, 0.0000, 0.0000, 0.0000)\n"
                          "STRAIGHT_TRAVERSE(4.0000, 0.0000, 0.0000, 0.0000, 0.0000, 0.0000)\n")),
      "NC_RAPID\nNC_GOTO 1 0 0\n"
      "NC_RAPID\nNC_GOTO 2 0 0\n"
      "NC_GOTO 3 0 0\n"
      "NC_RAPID\nNC_GOTO 4 0 0\n");
}

TEST(ListingReader, RepeatedPositionIsAMoveOfItsOwn) {
  EXPECT_EQ(readListing(program("STRAIGHT_FEED(1.0000, 2.0000, 3.0000, 0.0000, 0.0000, 0.0000)\n"
                                "STRAIGHT_FEED(1.0000, 2.0000, 3.0000, 0.0000, 0.0000, 0.0000)\n")),
            "NC_GOTO 1 2 3\nNC_GOTO 1 2 3\n");
}

TEST(ListingReader, MinusZeroIsZeroForPointsAndRotaryWords) {
  EXPECT_EQ(
      readListing(program("STRAIGHT_FEED(-0.0000, 1.0000, 2.0000, -0.0000, 0.0000, -0.0000)\n")),
      "NC_GOTO -0 1 2\n");
}

TEST(ListingReader, ElementTellsItsLine) {
  const InputFile file(
      program("COMMENT(\"up\")\n"
              "STRAIGHT_TRAVERSE(0.0000, 0.0000, 9.0000, 0.0000, 0.0000, 0.0000)\n"));
  host::ListingReader reader(std::make_unique<host::LineReader>(file.path()), {});
  host::ToolPathEvent event;
  ASSERT_TRUE(reader.next(event));
  EXPECT_TRUE(std::get<host::ActivityStart>(event).parameters.empty());
  ASSERT_TRUE(reader.next(event));
  EXPECT_EQ(std::get<host::Element>(event).instruction, "NC_OUTPUT_COMMENT");
  EXPECT_EQ(std::get<host::Element>(event).line, 2);
  ASSERT_TRUE(reader.next(event));
  // The first move sets the unit.
  const auto& unit = std::get<host::ActivityStart>(event).parameters;
  ASSERT_EQ(unit.size(), 1U);
  EXPECT_EQ(unit[0].first, "MFG_UNIT");
  EXPECT_EQ(unit[0].second.text.View(), "MM");
  ASSERT_TRUE(reader.next(event));
  EXPECT_EQ(std::get<host::Element>(event).instruction, "NC_RAPID");
  EXPECT_EQ(std::get<host::Element>(event).line, 3);
  ASSERT_TRUE(reader.next(event));
  EXPECT_EQ(std::get<host::Element>(event).instruction, "NC_GOTO");
  EXPECT_EQ(std::get<host::Element>(event).line, 3);
  EXPECT_EQ(std::get<host::Element>(event).sequence, 1);
  EXPECT_FALSE(reader.next(event));
  EXPECT_FALSE(reader.next(event));
}

TEST(ListingReader, BlockNumbersOfAnyLengthAreRead) {
  EXPECT_EQ(
      readListing("    1 N..... USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
                  "    2 N5     STRAIGHT_FEED(1.0000, 0.0000, 0.0000, 0.0000, 0.0000, 0.0000)\n"
                  "    3 N99999 STRAIGHT_FEED(2.0000, 0.0000, 0.0000, 0.0000, 0.0000, 0.0000)\n"
                  "    4 N1234567STRAIGHT_FEED(3.0000, 0.0000, 0.0000, 0.0000, 0.0000, 0.0000)\n"
                  "    5 N..... FINISH()\n"),
      "NC_GOTO 1 0 0\nNC_GOTO 2 0 0\nNC_GOTO 3 0 0\n");
}

TEST(ListingReader, CarriageReturnsAndAnOpenLastLineAreRead) {
  EXPECT_EQ(readListing("    1 N..... USE_LENGTH_UNITS(CANON_UNITS_MM)\r\n"
                        "    2 N..... STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\r\n"
                        "    3 N..... FINISH()"),
            "NC_GOTO 1 2 3\n");
}

TEST(ListingReader, TextsHoldQuotesParenthesesAndBytesOfAnyEncoding) {
  const std::string calls =
      "COMMENT(\"8.5 \"quoted\" (part) ) STRAIGHT_FEED(1, 2, 3, 0, 0, 0)\")\n"
      "COMMENT(\"\")\n"
      "MESSAGE(\" a \"b\", c\")\n"
      "COMMENT(\"Fr\xe4ser \xc3\xa9\tend\")\n";
  EXPECT_EQ(readListing(program(calls)),
            "NC_OUTPUT_COMMENT <8.5 \"quoted\" (part) ) STRAIGHT_FEED(1, 2, 3, 0, 0, 0)>\n"
            "NC_OUTPUT_COMMENT < a \"b\", c>\n"
            "NC_OUTPUT_COMMENT <Fr\xe4ser \xc3\xa9\tend>\n");
  EXPECT_EQ(countCalls(program(calls)),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "line COMMENT 2 from 2\n"
            "other COMMENT 1 from 3\n"
            "line MESSAGE 1 from 4\n"
            "other FINISH 1 from 6\n");
}

TEST(ListingReader, CallsWhoseMeaningIsInTheTextAreCountedByName) {
  EXPECT_EQ(countCalls(program("SET_FEED_RATE(300.0000)\n"
                               "SET_FEED_MODE(0, 0)\n"
                               "SET_SPINDLE_SPEED(0, 1800.0000)\n"
                               "SET_SPINDLE_MODE(0 0.0000)\n"
                               "START_SPINDLE_CLOCKWISE(0)\n"
                               "START_SPINDLE_COUNTERCLOCKWISE(0)\n"
                               "STOP_SPINDLE_TURNING(0)\n"
                               "SELECT_TOOL(1)\n"
                               "START_CHANGE()\n"
                               "CHANGE_TOOL(1)\n"
                               "CHANGE_TOOL_NUMBER(3)\n"
                               "DWELL(0.5000)\n"
                               "MESSAGE(\"ready\")\n"
                               "COMMENT(\"done\")\n"
                               "COMMENT(\"\")\n"
                               "SET_FEED_RATE(0.0000)\n")),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "line SET_FEED_RATE 2 from 2\n"
            "line SET_FEED_MODE 1 from 3\n"
            "line SET_SPINDLE_SPEED 1 from 4\n"
            "line SET_SPINDLE_MODE 1 from 5\n"
            "line START_SPINDLE_CLOCKWISE 1 from 6\n"
            "line START_SPINDLE_COUNTERCLOCKWISE 1 from 7\n"
            "line STOP_SPINDLE_TURNING 1 from 8\n"
            "line SELECT_TOOL 1 from 9\n"
            "other START_CHANGE 1 from 10\n"
            "line CHANGE_TOOL 1 from 11\n"
            "other CHANGE_TOOL_NUMBER 1 from 12\n"
            "line DWELL 1 from 13\n"
            "line MESSAGE 1 from 14\n"
            "line COMMENT 1 from 15\n"
            "other COMMENT 1 from 16\n"
            "other FINISH 1 from 18\n");
}

TEST(ListingReader, MovesWithoutALineAreCountedAsLost) {
  EXPECT_EQ(
      countCalls(program("ARC_FEED(3.0000, 3.0000, 3.0000, 2.0000, -1, 2.0000, 0.0, 0.0, 0.0)\n"
                         "NURBS_FEED(5, ...)\n"
                         "NURB_FEED(0.0000, 1.0000)\n"
                         "STRAIGHT_PROBE(0.0000, 0.0000, -5.0000, 0.0000, 0.0000, 0.0000)\n"
                         "RIGID_TAP(1.0000, 0.0000, -5.0000)\n"
                         "SPINDLE_RETRACT()\n"
                         "SPINDLE_RETRACT_TRAVERSE()\n"
                         "ARC_FEED(0.0000, 3.0000, 3.0000, 2.0000, -1, 2.0000, 0.0, 0.0, 0.0)\n")),
      "other USE_LENGTH_UNITS 1 from 1\n"
      "lost ARC_FEED 2 from 2\n"
      "lost NURBS_FEED 1 from 3\n"
      "lost NURB_FEED 1 from 4\n"
      "lost STRAIGHT_PROBE 1 from 5\n"
      "lost RIGID_TAP 1 from 6\n"
      "lost SPINDLE_RETRACT 1 from 7\n"
      "lost SPINDLE_RETRACT_TRAVERSE 1 from 8\n"
      "other FINISH 1 from 10\n");
}

TEST(ListingReader, OtherCallsAreCountedByName) {
  EXPECT_EQ(countCalls(program("SELECT_PLANE(CANON_PLANE_XY)\n"
                               "ON_RESET()\n"
                               "SET_MOTION_OUTPUT_VALUE(1,3.000000)\n"
                               "SET_MOTION_CONTROL_MODE(CANON_CONTINUOUS, 0.100000)\n"
                               "ON_RESET()\n"
                               "FLOOD_ON()\n"
                               "SPINDLE.1.WAIT_ORIENT_COMPLETE(5.0000)\n"
                               "SET_XY_ROTATION(0.0000)\n")),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "other SELECT_PLANE 1 from 2\n"
            "other ON_RESET 2 from 3\n"
            "other SET_MOTION_OUTPUT_VALUE 1 from 4\n"
            "other SET_MOTION_CONTROL_MODE 1 from 5\n"
            "other FLOOD_ON 1 from 7\n"
            "other SPINDLE.1.WAIT_ORIENT_COMPLETE 1 from 8\n"
            "other SET_XY_ROTATION 1 from 9\n"
            "other FINISH 1 from 10\n");
}

TEST(ListingReader, CallThatNobodyKnowsIsCountedAsUnknown) {
  EXPECT_EQ(countCalls(program("WOBBLE(1.0)\nSTRAIGHT_FEEDS(1.0, 2.0)\nWOBBLE()\n")),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "unknown WOBBLE 2 from 2\n"
            "unknown STRAIGHT_FEEDS 1 from 3\n"
            "other FINISH 1 from 5\n");
}

TEST(ListingReader, HundredUnknownCallsAreCountedAndOneMoreIsRefused) {
  std::string calls;
  for (int number = 1; number <= 100; ++number) calls += "WOBBLE" + std::to_string(number) + "()\n";
  EXPECT_EQ(readListing(program(calls)), "");
  EXPECT_EQ(readListing(program(calls + "WOBBLE()\n")),
            "102:14: more than 100 different calls are unknown; this is not a listing of rs274\n");
}

std::string summaryOf(std::string_view listing, const host::ListingOptions& options) {
  const InputFile file(listing);
  host::ListingReader reader(std::make_unique<host::LineReader>(file.path()), options);
  for (host::ToolPathEvent event; reader.next(event);) {
  }
  std::string summary;
  for (const std::string& line : host::summaryLines(reader)) summary += line + '\n';
  constexpr std::string_view kFates[] = {"move",    "chords", "written", "other",
                                         "dropped", "lost",   "unknown"};
  for (const host::CallCount& call : reader.calls().all()) {
    ((summary += kFates[static_cast<std::size_t>(call.fate)]) += ' ') +=
        call.name + ' ' + std::to_string(call.count) + '@' + std::to_string(call.firstLine) + '\n';
  }
  return summary;
}

TEST(ListingSummary, TellsMovesUnitAndWhatTheTextLacks) {
  EXPECT_EQ(summaryOf(program("STRAIGHT_TRAVERSE(0.0, 0.0, 9.0, 30.0, 0.0, 0.0)\n"
                              "STRAIGHT_FEED(0.0, 0.0, 1.0, 30.0, 0.0, 0.0)\n"
                              "SET_FEED_RATE(100.0)\n"
                              "SET_FEED_RATE(200.0)\n"
                              "PROGRAM_STOP()\n"
                              "ARC_FEED(3.0, 3.0, 3.0, 2.0, -1, 2.0, 0.0, 0.0, 0.0)\n"
                              "NURBS_FEED(5, ...)\n"
                              "WOBBLE()\n"),
                      rotary("A:table:X")),
            R"(positions in millimetres
positions taken as those of the tool's tip in the part's frame
other USE_LENGTH_UNITS 1@1
move STRAIGHT_TRAVERSE 1@2
move STRAIGHT_FEED 1@3
written SET_FEED_RATE 2@4
dropped PROGRAM_STOP 1@6
chords ARC_FEED 1@7
lost NURBS_FEED 1@8
unknown WOBBLE 1@9
other FINISH 1@10
)");
}

TEST(ListingSummary, TellsTheUnitOfFeedRatesWhereItIsAnother) {
  const std::string listing = program("STRAIGHT_TRAVERSE(0.0, 0.0, 9.0, 0.0, 0.0, 0.0)\n");
  host::ListingOptions options;
  options.unit = host::LengthUnit::Inch;
  options.vocabulary.feedPerMinute = host::LengthUnit::Millimetre;
  EXPECT_EQ(summaryOf(listing, options), R"(positions in inches
feed rates in millimetres, as their words say
other USE_LENGTH_UNITS 1@1
move STRAIGHT_TRAVERSE 1@2
other FINISH 1@3
)");
}

TEST(ListingSummary, WarnsOfBareTexts) {
  host::ListingOptions options;
  options.vocabulary.bareTexts = true;
  EXPECT_EQ(summaryOf(program("COMMENT(\"\")\n"), options),
            "other USE_LENGTH_UNITS 1@1\nother COMMENT 1@2\nother FINISH 1@3\n");
  EXPECT_EQ(summaryOf(program("MESSAGE(\"GOTO/1,2,3\")\n"), options),
            "WARNING: comments written as statements: 1; use --comments none, or\n"
            "  a table: *START_NC_INSTRUCTION NC_OUTPUT_COMMENT, PPRINT %MFG_OUTPUT_COMMENT\n"
            "other USE_LENGTH_UNITS 1@1\nwritten MESSAGE 1@2\nother FINISH 1@3\n");
}

TEST(ListingSummary, WithoutMovesNamesNoUnit) {
  EXPECT_EQ(summaryOf(numbered("FINISH()\n"), {}), "other FINISH 1@1\n");
}

}  // namespace
