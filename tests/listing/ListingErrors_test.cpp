#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/listing/Listings.h"

namespace {

using namespace std::string_view_literals;

constexpr std::string_view kNoCall =
    "not a call of a canonical listing (running number, block number, call); to keep the "
    "output of (print,...) out of the listing, use: rs274 -g PROGRAM LISTING\n";

TEST(ListingErrors, DamagedLineIsRefusedWithItsPlace) {
  struct Case {
    std::string_view expected;
    std::string_view line;
  };
  const std::vector<Case> cases = {
      {"1:1: ", ""},
      {"1:1: ", "hello world"},
      {"1:1: ", "N..... ON_RESET()"},
      {"1:5: ", "    1"},
      {"1:5: ", "    1N..... ON_RESET()"},
      {"1:5: ", "    1 ON_RESET()"},
      {"1:1: ", "\xEF\xBB\xBF    1 N..... ON_RESET()"},
      {"1:5: ", "    99999999999999999999 N..... ON_RESET()"},
      {"1:3: ", "  -1 N..... ON_RESET()"},
  };
  for (const auto& [expected, line] : cases) {
    EXPECT_EQ(readListing(line.empty() ? "\n" : line), std::string(expected) + std::string(kNoCall))
        << line;
  }
}

TEST(ListingErrors, MisformedCallIsRefusedWithItsPlace) {
  struct Case {
    std::string_view expected;
    std::string_view line;
  };
  const std::vector<Case> cases = {
      {"1:8: '.....' or a block number is expected after 'N'\n", "    1 N ON_RESET()"},
      {"1:8: '.....' or a block number is expected after 'N'\n", "    1 NURBS_FEED(5, ...)"},
      {"1:13: the name of a call is expected\n", "    1 N....."},
      {"1:14: the name of a call is expected\n", "    1 N..... ()"},
      {"1:14: the name of a call is expected\n", "    1 N..... on_reset()"},
      {"1:14: the name of a call is expected\n", "    1 N..... 7()"},
      {"1:22: '(' is expected after the name of the call\n", "    1 N..... ON_RESET"},
      {"1:22: '(' is expected after the name of the call\n", "    1 N..... ON_RESET []"},
      {"1:23: the line does not end with ')'; it is cut short or damaged\n",
       "    1 N..... ON_RESET("},
      {"1:25: the line does not end with ')'; it is cut short or damaged\n",
       "    1 N..... ON_RESET() "},
      {"1:25: the line does not end with ')'; it is cut short or damaged\n",
       "    1 N..... ON_RESET();"},
      {"1:7: the byte 0x00 is not text; this is not a listing, or it is damaged\n",
       "    1 \0..... ON_RESET()"sv},
      {"1:24: the byte 0x1b is not text; this is not a listing, or it is damaged\n",
       "    1 N..... COMMENT(\"a\x1b\")"},
      {"1:24: the byte 0x7f is not text; this is not a listing, or it is damaged\n",
       "    1 N..... COMMENT(\"a\x7f\")"},
      {"1:22: the byte 0x0d is not text; this is not a listing, or it is damaged\n",
       "    1 N..... ON_RESET\r()"},
  };
  for (const auto& [expected, line] : cases) EXPECT_EQ(readListing(line), expected) << line;
}

TEST(ListingErrors, NameOfSixtyFourBytesIsTheLongest) {
  const std::string longest(64, 'A');
  EXPECT_EQ(readListing(program(longest + "()\n")), "");
  EXPECT_EQ(readListing(program(longest + "A()\n")), "2:14: the name of the call is too long\n");
}

TEST(ListingErrors, WrongArgumentsAreRefusedWithTheirPlace) {
  struct Case {
    std::string_view expected;
    std::string_view call;
  };
  // The arguments of STRAIGHT_FEED begin in column 28.
  const std::vector<Case> cases = {
      {"2:38: STRAIGHT_FEED: expected 6 arguments, found 2\n", "STRAIGHT_FEED(1.00, 2.00)"},
      {"2:28: STRAIGHT_FEED: expected 6 arguments, found 0\n", "STRAIGHT_FEED()"},
      {"2:58: STRAIGHT_FEED: expected 6 arguments, found more\n",
       "STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0, 7.0)"},
      {"2:36: STRAIGHT_FEED: argument missing after the last comma\n", "STRAIGHT_FEED(1.0 2.0,)"},
      {"2:33: STRAIGHT_FEED: '' is not a number\n", "STRAIGHT_FEED(1.0, , 3.0, 0.0, 0.0, 0.0)"},
      {"2:33: STRAIGHT_FEED: '2.0e5' is not a number\n",
       "STRAIGHT_FEED(1.0, 2.0e5, 3.0, 0.0, 0.0, 0.0)"},
      {"2:33: STRAIGHT_FEED: '+2.0' is not a number\n",
       "STRAIGHT_FEED(1.0, +2.0, 3.0, 0.0, 0.0, 0.0)"},
      {"2:33: STRAIGHT_FEED: '0x2' is not a number\n",
       "STRAIGHT_FEED(1.0, 0x2, 3.0, 0.0, 0.0, 0.0)"},
      {"2:33: STRAIGHT_FEED: 'abc' is not a number\n",
       "STRAIGHT_FEED(1.0, abc, 3.0, 0.0, 0.0, 0.0)"},
      {"2:33: STRAIGHT_FEED: '2.0.0' is not a number\n",
       "STRAIGHT_FEED(1.0, 2.0.0, 3.0, 0.0, 0.0, 0.0)"},
      {"2:33: STRAIGHT_FEED: '-' is not a number\n", "STRAIGHT_FEED(1.0, -, 3.0, 0.0, 0.0, 0.0)"},
      {"2:28: STRAIGHT_FEED: 'nan' is not a finite number\n",
       "STRAIGHT_FEED(nan, 2.0, 3.0, 0.0, 0.0, 0.0)"},
      {"2:28: STRAIGHT_FEED: '-inf' is not a finite number\n",
       "STRAIGHT_FEED(-inf, 2.0, 3.0, 0.0, 0.0, 0.0)"},
      {"2:28: DWELL: expected 1 argument, found more\n", "DWELL(1.0000, 2)"},
      {"2:22: COMMENT: its text is not in quotes\n", "COMMENT(a)"},
      {"2:22: COMMENT: its text is not in quotes\n", "COMMENT(\"a)"},
      {"2:22: COMMENT: its text is not in quotes\n", "COMMENT(\")"},
      {"2:22: COMMENT: expected 1 argument, found 0\n", "COMMENT()"},
      {"2:26: SELECT_TOOL: '1.5' is not a whole number\n", "SELECT_TOOL(1.5)"},
      {"2:26: SELECT_TOOL: '99999999999' is not a whole number\n", "SELECT_TOOL(99999999999)"},
      {"2:26: PROGRAM_END: expected 0 arguments, found more\n", "PROGRAM_END(1)"},
      {"2:31: USE_LENGTH_UNITS: expected 1 argument, found 0\n", "USE_LENGTH_UNITS()"},
      {"2:31: unknown length unit; CANON_UNITS_MM, CANON_UNITS_INCHES or CANON_UNITS_CM is "
       "expected\n",
       "USE_LENGTH_UNITS(UNKNOWN)"},
  };
  for (const auto& [expected, call] : cases) {
    EXPECT_EQ(readListing(program(std::string(call) + '\n')), expected) << call;
  }
}

TEST(ListingErrors, EveryWaitingCallChecksItsArguments) {
  struct Case {
    std::string_view expected;
    std::string_view call;
  };
  const std::vector<Case> cases = {
      {"2:28: SET_FEED_RATE: 'fast' is not a number\n", "SET_FEED_RATE(fast)"},
      {"2:31: SET_FEED_MODE: 'x' is not a whole number\n", "SET_FEED_MODE(0, x)"},
      {"2:33: SET_SPINDLE_SPEED: expected 2 arguments, found 1\n", "SET_SPINDLE_SPEED(0)"},
      {"2:33: SET_SPINDLE_MODE: 'x' is not a number\n", "SET_SPINDLE_MODE(0 x)"},
      {"2:38: START_SPINDLE_CLOCKWISE: '0.5' is not a whole number\n",
       "START_SPINDLE_CLOCKWISE(0.5)"},
      {"2:45: START_SPINDLE_COUNTERCLOCKWISE: expected 1 argument, found 0\n",
       "START_SPINDLE_COUNTERCLOCKWISE()"},
      {"2:35: STOP_SPINDLE_TURNING: 'a' is not a whole number\n", "STOP_SPINDLE_TURNING(a)"},
      {"2:26: SELECT_TOOL: expected 1 argument, found 0\n", "SELECT_TOOL()"},
      {"2:27: START_CHANGE: expected 0 arguments, found more\n", "START_CHANGE(1)"},
      {"2:26: CHANGE_TOOL: '1.0' is not a whole number\n", "CHANGE_TOOL(1.0)"},
      {"2:33: CHANGE_TOOL_NUMBER: 'x' is not a whole number\n", "CHANGE_TOOL_NUMBER(x)"},
      {"2:22: COMMENT: its text is not in quotes\n", "COMMENT(x)"},
      {"2:22: MESSAGE: expected 1 argument, found 0\n", "MESSAGE()"},
      {"2:20: DWELL: 'nan' is not a finite number\n", "DWELL(nan)"},
  };
  for (const auto& [expected, call] : cases) {
    EXPECT_EQ(readListing(program(std::string(call) + '\n')), expected) << call;
  }
}

TEST(ListingErrors, LongWrongNumberIsShortenedInTheMessage) {
  EXPECT_EQ(readListing(program("DWELL(" + std::string(60, 'x') + ")\n")),
            "2:20: DWELL: 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...' is not a number\n");
}

TEST(ListingErrors, NumberBeyondEveryDoubleIsRefused) {
  EXPECT_EQ(readListing(program("DWELL(1" + std::string(400, '0') + ".0)\n")),
            "2:20: DWELL: '1000000000000000000000000000000000000000...' is not a finite number\n");
}

TEST(ListingErrors, LineOfSixtyFourKibibytesIsTheLongest) {
  const std::string opening = "    1 N..... LOG(\"";
  const std::string longest = opening + std::string(65536 - opening.size() - 2, 'x') + "\")\n";
  EXPECT_EQ(readListing(longest + "    2 N..... FINISH()\n"), "");
  EXPECT_EQ(readListing(opening + std::string(65537 - opening.size() - 2, 'x') + "\")\n"),
            "1:65537: the line is longer than 64 KiB (65536 bytes)\n");
}

TEST(ListingErrors, ListingWithoutAnEndIsRefusedAfterItsMoves) {
  constexpr std::string_view kCut =
      "the listing ends without PROGRAM_END or FINISH; it is cut short, or rs274 stopped at an "
      "error in the program\n";
  EXPECT_EQ(readListing(""), "0:0: " + std::string(kCut));
  EXPECT_EQ(readListing(numbered("USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
                                 "STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n"
                                 "ON_RESET()\n"
                                 "ON_RESET()\n")),
            "NC_GOTO 1 2 3\n4:0: " + std::string(kCut));
}

TEST(ListingErrors, FinishEndsAListingToo) {
  EXPECT_EQ(readListing(numbered("FINISH()\nON_RESET()\n")), "");
}

TEST(ListingErrors, CallsAfterTheEndAreReadUnlessTheyMove) {
  EXPECT_EQ(readListing(numbered("USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
                                 "PROGRAM_END()\n"
                                 "COMMENT(\"interpreter: percent sign missing from end of file\")\n"
                                 "SET_FEED_MODE(0, 7)\n"
                                 "STOP_SPINDLE_TURNING(0)\n"
                                 "PROGRAM_END()\n"
                                 "ON_RESET()\n")),
            "NC_END_MACRO\n");
  EXPECT_EQ(readListing(numbered("USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
                                 "FINISH()\n"
                                 "STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n")),
            "3:14: a move follows the end of the program\n");
}

TEST(ListingErrors, CallInDoubtIsRefusedWithItsPlace) {
  constexpr std::string_view kNoTool =
      "2:14: no SELECT_TOOL before this selects a tool: CHANGE_TOOL names the pocket of the tool, "
      "not its number\n";
  constexpr std::string_view kNoMode =
      "SET_FEED_MODE: the mode is neither 0 (per minute) nor 1 (per revolution)\n";
  EXPECT_EQ(readListing(program("CHANGE_TOOL(1)\n")), kNoTool);
  EXPECT_EQ(readListing(program("SET_FEED_MODE(0, 2)\n")), "2:31: " + std::string(kNoMode));
  EXPECT_EQ(readListing(program("SET_FEED_MODE(0, -1)\n")), "2:31: " + std::string(kNoMode));
  EXPECT_EQ(readListing(numbered("SELECT_TOOL(-1)\nCHANGE_TOOL(0)\nFINISH()\n")), kNoTool);
}

TEST(ListingErrors, GapInTheRunningNumbersIsRefused) {
  EXPECT_EQ(readListing("    2 N..... ON_RESET()\n"),
            "1:1: expected running number 1, found 2; calls are missing or out of order\n");
  EXPECT_EQ(readListing("    1 N..... ON_RESET()\n    1 N..... ON_RESET()\n"),
            "2:1: expected running number 2, found 1; calls are missing or out of order\n");
  EXPECT_EQ(readListing("    1 N..... ON_RESET()\n   13 N..... ON_RESET()\n"),
            "2:1: expected running number 2, found 13; calls are missing or out of order\n");
}

TEST(ListingErrors, CallsThatLeavePositionsInDoubtAreRefused) {
  EXPECT_EQ(readListing(program("START_CUTTER_RADIUS_COMPENSATION(LEFT)\n")),
            "2:14: cutter compensation is left to the machine, so the positions after this are "
            "not those of the tool; create the listing with compensated positions\n");
  EXPECT_EQ(readListing(program("CANON_ERROR(no such thing)\n")),
            "2:14: the interpreter reported an error in the program here\n");
  EXPECT_EQ(readListing(program("USE_TOOL_LENGTH_OFFSET(0.0 0.0 9.0, 0.0 5.0 0.0, 0.0 0.0 0.0)\n")),
            "2:14: this tool offset turns rotary axes, so the tool axis no longer follows from the "
            "words of the moves; create the listing without rotary offsets in the tool table\n");
}

}  // namespace
