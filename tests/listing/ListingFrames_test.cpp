#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/listing/Listings.h"

namespace {

constexpr std::string_view kMove = "STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n";

std::string twoMovesWith(std::string_view before, std::string_view between) {
  return program(std::string(before).append(kMove).append(between).append(kMove));
}

std::string changed(std::string_view by) {
  return "NC_GOTO 1 2 3\n4:14: this move uses another coordinate system than the moves "
         "before it (" +
         std::string(by) + " in line 3); create a separate listing for each coordinate system\n";
}

TEST(ListingFrames, OffsetsBeforeTheFirstMoveAreThePartsOwn) {
  EXPECT_EQ(readListing(program("SET_G5X_OFFSET(2, 10.0, 20.0, -30.0, 0.0, 0.0, 15.0)\n"
                                "SET_G92_OFFSET(1.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                "SET_XY_ROTATION(30.0)\n" +
                                std::string(kMove))),
            "NC_GOTO 1 2 3\n");
}

TEST(ListingFrames, FixtureOffsetChangedBetweenMovesIsRefused) {
  EXPECT_EQ(readListing(twoMovesWith("", "SET_G5X_OFFSET(1, 10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n")),
            changed("SET_G5X_OFFSET"));
  EXPECT_EQ(readListing(twoMovesWith("", "SET_G5X_OFFSET(1, 0.0, 0.0, 0.0, 0.0, 0.0, 5.0)\n")),
            changed("SET_G5X_OFFSET"));
}

TEST(ListingFrames, ProgramOffsetChangedBetweenMovesIsRefused) {
  EXPECT_EQ(readListing(twoMovesWith("", "SET_G92_OFFSET(0.0, 0.0, 7.0, 0.0, 0.0, 0.0)\n")),
            changed("SET_G92_OFFSET"));
}

TEST(ListingFrames, RotationChangedBetweenMovesIsRefused) {
  EXPECT_EQ(readListing(twoMovesWith("", "SET_XY_ROTATION(90.0)\n")), changed("SET_XY_ROTATION"));
}

TEST(ListingFrames, CallThatChangedTheSystemIsNamed) {
  EXPECT_EQ(readListing(twoMovesWith("",
                                     "SET_G5X_OFFSET(2, 10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_G92_OFFSET(0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_XY_ROTATION(0.0)\n")),
            "NC_GOTO 1 2 3\n6:14: this move uses another coordinate system than the moves "
            "before it (SET_G5X_OFFSET in line 3); create a separate listing for each coordinate "
            "system\n");
}

TEST(ListingFrames, SystemThatCreepsAwayIsRefused) {
  EXPECT_EQ(readListing(twoMovesWith("",
                                     "SET_G5X_OFFSET(1, 0.0001, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_G5X_OFFSET(1, 0.0002, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_G5X_OFFSET(1, 0.0003, 0.0, 0.0, 0.0, 0.0, 0.0)\n")),
            "NC_GOTO 1 2 3\n6:14: this move uses another coordinate system than the moves "
            "before it (SET_G5X_OFFSET in line 3); create a separate listing for each coordinate "
            "system\n");
}

TEST(ListingFrames, AnotherNumberForTheSameOffsetsIsNoChange) {
  EXPECT_EQ(readListing(twoMovesWith("",
                                     "SET_G5X_OFFSET(2, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_G92_OFFSET(0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_XY_ROTATION(0.0)\n")),
            "NC_GOTO 1 2 3\nNC_GOTO 1 2 3\n");
}

TEST(ListingFrames, ChangeThatIsTakenBackBeforeTheNextMoveIsNoChange) {
  EXPECT_EQ(readListing(twoMovesWith("", "SET_XY_ROTATION(90.0)\nSET_XY_ROTATION(0.0)\n")),
            "NC_GOTO 1 2 3\nNC_GOTO 1 2 3\n");
}

TEST(ListingFrames, ChangeBehindTheLastMoveIsNoMatter) {
  EXPECT_EQ(readListing(program("SET_G5X_OFFSET(2, 10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n" +
                                std::string(kMove) +
                                "SET_G5X_OFFSET(1, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n")),
            "NC_GOTO 1 2 3\n");
}

TEST(ListingFrames, SameOffsetInAnotherUnitIsNoChange) {
  // 10 mm are 0.3937 inches as a listing prints them, which are 9.99998 mm.
  EXPECT_EQ(readListing(twoMovesWith("SET_G5X_OFFSET(1, 10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n",
                                     "USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
                                     "SET_G5X_OFFSET(1, 0.3937, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "USE_LENGTH_UNITS(CANON_UNITS_MM)\n")),
            "NC_GOTO 1 2 3\nNC_GOTO 1 2 3\n");
}

TEST(ListingFrames, SameNumberInAnotherUnitIsAChange) {
  EXPECT_EQ(
      readListing(twoMovesWith("SET_G5X_OFFSET(1, 10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n",
                               "USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
                               "SET_G5X_OFFSET(1, 10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n")),
      "NC_GOTO 1 2 3\n6:14: this move uses another coordinate system than the moves before "
      "it (SET_G5X_OFFSET in line 5); create a separate listing for each coordinate system\n");
}

TEST(ListingFrames, LengthOffsetOfTheToolLeavesPositionsThoseOfItsTip) {
  EXPECT_EQ(readListing(twoMovesWith(
                "", "USE_TOOL_LENGTH_OFFSET(1.0 0.0 25.0, 0.0 0.0 0.0, 0.0 0.0 0.0)\n")),
            "NC_GOTO 1 2 3\nNC_GOTO 1 2 3\n");
}

TEST(ListingFrames, TurnedSystemIsRefusedWithToolAxes) {
  constexpr std::string_view kMessage =
      "3:14: the coordinate system has rotary offsets or a rotated XY plane ";
  constexpr std::string_view kAdvice =
      " in line 2), so the tool axis is unknown; create the listing without them\n";
  struct Case {
    std::string_view call;
    std::string_view name;
  };
  constexpr Case kCases[] = {
      {"SET_XY_ROTATION(30.0)\n", "(SET_XY_ROTATION"},
      {"SET_G5X_OFFSET(1, 0.0, 0.0, 0.0, 5.0, 0.0, 0.0)\n", "(SET_G5X_OFFSET"},
      {"SET_G92_OFFSET(0.0, 0.0, 0.0, 0.0, 0.0, 5.0)\n", "(SET_G92_OFFSET"},
  };
  for (const auto& [call, name] : kCases) {
    const std::string listing = program(std::string(call).append(kMove));
    EXPECT_EQ(readListing(listing, rotary("A:table:X")),
              std::string(kMessage).append(name).append(kAdvice));
    EXPECT_EQ(readListing(listing), "NC_GOTO 1 2 3\n");
  }
}

TEST(ListingFrames, LinearOffsetsAreAcceptedWithToolAxes) {
  EXPECT_EQ(
      readListing(program("SET_G5X_OFFSET(1, 5.0, 6.0, 7.0, 0.0, 0.0, 0.0)\n" + std::string(kMove)),
                  rotary("A:table:X")),
      "NC_MULTAX_ON\n"
      "NC_GOTO_VARIABLE_AXIS 1 2 3 axis 0.000000 0.000000 1.000000\n");
}

}  // namespace
