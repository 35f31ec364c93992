#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/listing/Listings.h"

namespace {

using host::LengthUnit;

constexpr std::string_view kStart1000 = "NC_SPINDLE_START 1000 ANGULARSPINDLESPEED way 1\n";

TEST(ListingSpindle, CallThatChangesTheSpindleGivesItsLine) {
  struct Case {
    std::string_view subject, calls, expected;
  };
  const std::vector<Case> cases = {
      {"a speed alone turns nothing", "SET_SPINDLE_SPEED(0, 1000.0)\n", ""},
      {"start with a speed", "SET_SPINDLE_SPEED(0, 1000.0)\nSTART_SPINDLE_CLOCKWISE(0)\n",
       kStart1000},
      {"the other way", "SET_SPINDLE_SPEED(0, 1000.0)\nSTART_SPINDLE_COUNTERCLOCKWISE(0)\n",
       "NC_SPINDLE_START 1000 ANGULARSPINDLESPEED way 2\n"},
      {"start without a speed", "START_SPINDLE_CLOCKWISE(0)\n",
       "NC_SPINDLE_START 0 ANGULARSPINDLESPEED way 1\n"},
      {"first stop, when nobody tells what turned before", "STOP_SPINDLE_TURNING(0)\n",
       "NC_SPINDLE_OFF\n"},
      {"stop of a spindle that stands", "STOP_SPINDLE_TURNING(0)\nSTOP_SPINDLE_TURNING(0)\n",
       "NC_SPINDLE_OFF\n"},
  };
  for (const auto& [subject, calls, expected] : cases) {
    EXPECT_EQ(readListing(program(calls)), expected) << subject;
  }
}

TEST(ListingSpindle, TurningSpindleIsToldWhatChanges) {
  struct Case {
    std::string_view subject, calls, expected;
  };
  const std::vector<Case> cases = {
      {"same way", "START_SPINDLE_CLOCKWISE(0)\n", ""},
      {"same speed", "SET_SPINDLE_SPEED(0, 1000.0)\n", ""},
      {"other speed", "SET_SPINDLE_SPEED(0, 500.5)\n",
       "NC_SPINDLE 500.5 ANGULARSPINDLESPEED way 1\n"},
      {"other speed and the same way", "SET_SPINDLE_SPEED(0, 500.0)\nSTART_SPINDLE_CLOCKWISE(0)\n",
       "NC_SPINDLE 500 ANGULARSPINDLESPEED way 1\n"},
      {"other way", "START_SPINDLE_COUNTERCLOCKWISE(0)\n",
       "NC_SPINDLE_START 1000 ANGULARSPINDLESPEED way 2\n"},
      {"stop and start", "STOP_SPINDLE_TURNING(0)\nSTART_SPINDLE_CLOCKWISE(0)\n",
       "NC_SPINDLE_OFF\nNC_SPINDLE_START 1000 ANGULARSPINDLESPEED way 1\n"},
      {"speed of a spindle that stands",
       "STOP_SPINDLE_TURNING(0)\nSET_SPINDLE_SPEED(0, 2000.0)\nSTART_SPINDLE_CLOCKWISE(0)\n",
       "NC_SPINDLE_OFF\nNC_SPINDLE_START 2000 ANGULARSPINDLESPEED way 1\n"},
  };
  const std::string start = "SET_SPINDLE_SPEED(0, 1000.0)\nSTART_SPINDLE_CLOCKWISE(0)\n";
  for (const auto& [subject, calls, expected] : cases) {
    EXPECT_EQ(readListing(program(start + std::string(calls))),
              std::string(kStart1000) + std::string(expected))
        << subject;
  }
}

/// The calls of a surface speed of 200 with this unit of the document's word.
std::string surface(std::string_view unit, std::optional<LengthUnit> word) {
  host::ListingOptions options;
  options.vocabulary.surfaceSpeed = word;
  return readListing(program("USE_LENGTH_UNITS(" + std::string(unit) +
                             ")\n"
                             "SET_SPINDLE_MODE(0 1000000000000000019884624838656.0000)\n"
                             "SET_SPINDLE_SPEED(0, 200.0)\n"
                             "START_SPINDLE_CLOCKWISE(0)\n"),
                     options);
}

TEST(ListingSpindle, SurfaceSpeedIsInMetresOrFeetPerMinute) {
  const std::string plain = "NC_SPINDLE_START 200 LINEARSPINDLESPEED way 1\n";
  EXPECT_EQ(surface("CANON_UNITS_MM", {}), plain);
  EXPECT_EQ(surface("CANON_UNITS_INCHES", {}), plain);
  EXPECT_EQ(surface("CANON_UNITS_CM", LengthUnit::Millimetre), plain);
  EXPECT_EQ(surface("CANON_UNITS_INCHES", LengthUnit::Inch), plain);
  EXPECT_EQ(surface("CANON_UNITS_INCHES", LengthUnit::Millimetre),
            "NC_SPINDLE_START 60.96 LINEARSPINDLESPEED way 1\n");
  EXPECT_EQ(surface("CANON_UNITS_MM", LengthUnit::Inch),
            "NC_SPINDLE_START 656.1679790026246 LINEARSPINDLESPEED way 1\n");
}

TEST(ListingSpindle, ModeDecidesTheKindOfTheSpeed) {
  EXPECT_EQ(readListing(program("SET_SPINDLE_SPEED(0, 100.0)\n"
                                "START_SPINDLE_CLOCKWISE(0)\n"
                                "SET_SPINDLE_MODE(0 1000000000000000019884624838656.0000)\n"
                                "SET_SPINDLE_SPEED(0, 100.0)\n"
                                "SET_SPINDLE_MODE(0 0.0000)\n"
                                "SET_SPINDLE_SPEED(0, 100.0)\n")),
            "NC_SPINDLE_START 100 ANGULARSPINDLESPEED way 1\n"
            "NC_SPINDLE 100 LINEARSPINDLESPEED way 1\n"
            "NC_SPINDLE 100 ANGULARSPINDLESPEED way 1\n");
}

TEST(ListingSpindle, LimitOfTheSpeedAndOtherSpindlesSayMoreThanTheText) {
  const std::string listing = program(
      "SET_SPINDLE_MODE(0 2500.0000)\n"
      "SET_SPINDLE_MODE(1 0.0000)\n"
      "SET_SPINDLE_SPEED(1, 500.0)\n"
      "START_SPINDLE_CLOCKWISE(1)\n"
      "START_SPINDLE_COUNTERCLOCKWISE(2)\n"
      "STOP_SPINDLE_TURNING(-1)\n"
      "SET_SPINDLE_MODE(0 0.0000)\n");
  EXPECT_EQ(readListing(listing), "");
  EXPECT_EQ(countCalls(listing),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "says more SET_SPINDLE_MODE 2 from 2\n"
            "says more SET_SPINDLE_SPEED 1 from 4\n"
            "says more START_SPINDLE_CLOCKWISE 1 from 5\n"
            "says more START_SPINDLE_COUNTERCLOCKWISE 1 from 6\n"
            "says more STOP_SPINDLE_TURNING 1 from 7\n"
            "line SET_SPINDLE_MODE 1 from 8\n"
            "other FINISH 1 from 9\n");
}

}  // namespace
