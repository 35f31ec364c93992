#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/listing/Listings.h"

namespace {

using host::LengthUnit;

constexpr std::string_view kMixed =
    "USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
    "USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
    "STRAIGHT_FEED(1.0000, -2.0000, 0.5000, 0.0000, 0.0000, 0.0000)\n"
    "USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
    "STRAIGHT_FEED(25.4000, 12.7000, 0.0000, 0.0000, 0.0000, 0.0000)\n"
    "USE_LENGTH_UNITS(CANON_UNITS_CM)\n"
    "STRAIGHT_FEED(2.5400, 0.0000, 5.0800, 0.0000, 0.0000, 0.0000)\n"
    "FINISH()\n";

TEST(ListingUnits, PositionsComeOutInTheUnitOfTheFirstMove) {
  EXPECT_EQ(readListing(numbered(kMixed)), "NC_GOTO 1 -2 0.5\nNC_GOTO 1 0.5 0\nNC_GOTO 1 0 2\n");
}

TEST(ListingUnits, ChosenUnitConvertsAllPositions) {
  EXPECT_EQ(readListing(numbered(kMixed), {LengthUnit::Millimetre, {}}),
            "NC_GOTO 25.4 -50.8 12.7\nNC_GOTO 25.4 12.7 0\nNC_GOTO 25.4 0 50.8\n");
  EXPECT_EQ(readListing(numbered(kMixed), {LengthUnit::Inch, {}}),
            "NC_GOTO 1 -2 0.5\nNC_GOTO 1 0.5 0\nNC_GOTO 1 0 2\n");
}

TEST(ListingUnits, RotaryWordsAreNoLengths) {
  auto options = rotary("A:table:X");
  options.unit = LengthUnit::Millimetre;
  EXPECT_EQ(readListing(numbered("USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
                                 "STRAIGHT_FEED(1.0, 2.0, 3.0, 90.0, 0.0, 0.0)\n"
                                 "FINISH()\n"),
                        options),
            "NC_MULTAX_ON\n"
            "NC_GOTO_VARIABLE_AXIS 25.4 50.8 76.2 axis 0.000000 1.000000 0.000000\n");
}

TEST(ListingUnits, MoveBeforeAnyUnitIsRefusedUnlessTheUnitIsChosen) {
  const std::string listing = numbered("STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\nFINISH()\n");
  EXPECT_EQ(readListing(listing),
            "1:14: a move comes before any length unit; name the unit with --units mm or "
            "--units inch\n");
  EXPECT_EQ(readListing(listing, {LengthUnit::Inch, {}}), "NC_GOTO 1 2 3\n");
}

TEST(ListingUnits, FeedRateBeforeAnyUnitIsRefusedUnlessItIsZeroOrTheUnitIsChosen) {
  const std::string listing = numbered(
      "SET_FEED_RATE(0.0)\n"
      "SET_FEED_RATE(2.0)\n"
      "STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n"
      "FINISH()\n");
  EXPECT_EQ(readListing(listing),
            "2:14: a feed rate comes before any length unit; name the unit with --units mm or "
            "--units inch\n");
  EXPECT_EQ(readListing(listing, {LengthUnit::Inch, {}}),
            "NC_FEEDRATE 2 LINEARFEEDRATE\nNC_GOTO 1 2 3\n");
}

TEST(ListingUnits, UnitNamedAfterMovesInTheChosenUnitHolds) {
  EXPECT_EQ(readListing(numbered("STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n"
                                 "USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
                                 "STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n"
                                 "FINISH()\n"),
                        {LengthUnit::Millimetre, {}}),
            "NC_GOTO 1 2 3\nNC_GOTO 25.4 50.8 76.2\n");
}

TEST(ListingUnits, UserNamesMillimetresAndInches) {
  EXPECT_EQ(host::outputUnit("mm"), LengthUnit::Millimetre);
  EXPECT_EQ(host::outputUnit("inch"), LengthUnit::Inch);
  EXPECT_EQ(host::outputUnit("cm"), std::nullopt);
  EXPECT_EQ(host::outputUnit(""), std::nullopt);
  EXPECT_EQ(host::outputUnit("MM"), std::nullopt);
}

}  // namespace
