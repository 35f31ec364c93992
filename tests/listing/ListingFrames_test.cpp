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
         std::string(by) +
         " in line 3); write NC_ORIGIN in a table, or convert the moves with --origins convert\n";
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
            "before it (SET_G5X_OFFSET in line 3); write NC_ORIGIN in a table, or convert the "
            "moves with --origins convert\n");
}

TEST(ListingFrames, SystemThatCreepsAwayIsRefused) {
  EXPECT_EQ(readListing(twoMovesWith("",
                                     "SET_G5X_OFFSET(1, 0.0001, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_G5X_OFFSET(1, 0.0002, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_G5X_OFFSET(1, 0.0003, 0.0, 0.0, 0.0, 0.0, 0.0)\n")),
            "NC_GOTO 1 2 3\n6:14: this move uses another coordinate system than the moves "
            "before it (SET_G5X_OFFSET in line 3); write NC_ORIGIN in a table, or convert the "
            "moves with --origins convert\n");
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

TEST(ListingFrames, ChangeAfterTheLastMoveIsNoMatter) {
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
  EXPECT_EQ(readListing(twoMovesWith("SET_G5X_OFFSET(1, 10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n",
                                     "USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
                                     "SET_G5X_OFFSET(1, 10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n")),
            "NC_GOTO 1 2 3\n6:14: this move uses another coordinate system than the moves before "
            "it (SET_G5X_OFFSET in line 5); write NC_ORIGIN in a table, or convert the moves with "
            "--origins convert\n");
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

// The parameters of an activity that are the same in all tests below.
std::string origin(std::string_view numbers, std::string_view number) {
  return std::string("activity ")
      .append(numbers)
      .append(" MFG_ORIGIN_NUMBER=")
      .append(number)
      .append("\nNC_ORIGIN\n");
}

std::string unturned(std::string_view x, std::string_view y, std::string_view z) {
  return std::string("MFG_NCAXIS_X_ORIG=")
      .append(x)
      .append(" MFG_NCAXIS_Y_ORIG=")
      .append(y)
      .append(" MFG_NCAXIS_Z_ORIG=")
      .append(z)
      .append(
          " MFG_NCAXIS_X_VECX=1 MFG_NCAXIS_Y_VECX=0 MFG_NCAXIS_Z_VECX=0"
          " MFG_NCAXIS_X_VECY=0 MFG_NCAXIS_Y_VECY=1 MFG_NCAXIS_Z_VECY=0"
          " MFG_NCAXIS_X_VECZ=0 MFG_NCAXIS_Y_VECZ=0 MFG_NCAXIS_Z_VECZ=1");
}

host::ListingOptions printing(const host::OriginWords& words) {
  host::ListingOptions options;
  options.vocabulary.origin = words;
  return options;
}

const host::ListingOptions kNumber = printing({true, false, false});
const host::ListingOptions kCoordinates = printing({false, true, false});
const host::ListingOptions kAll = printing({true, true, true});

host::ListingOptions converting() {
  host::ListingOptions options;
  options.convertsOrigins = true;
  return options;
}

TEST(ListingOrigins, ChangeBecomesALineAndMovesStay) {
  EXPECT_EQ(
      readListing(twoMovesWith("", "SET_G5X_OFFSET(2, 10.0, 20.0, -30.0, 0.0, 0.0, 0.0)\n"), kAll),
      "NC_GOTO 1 2 3\n" + origin(unturned("10", "20", "-30"), "2") + "NC_GOTO 1 2 3\n");
}

TEST(ListingOrigins, FirstSystemIsStatedUnlessItIsThatOfAMachineWithoutOffsets) {
  const auto oneMoveAfter = [](std::string_view calls) {
    return readListing(program(std::string(calls).append(kMove)), kAll);
  };
  EXPECT_EQ(oneMoveAfter("SET_G5X_OFFSET(1, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"), "NC_GOTO 1 2 3\n");
  EXPECT_EQ(oneMoveAfter("SET_G5X_OFFSET(6, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"),
            origin(unturned("0", "0", "0"), "6") + "NC_GOTO 1 2 3\n");
  EXPECT_EQ(oneMoveAfter("SET_G5X_OFFSET(1, 5.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"),
            origin(unturned("5", "0", "0"), "1") + "NC_GOTO 1 2 3\n");
}

TEST(ListingOrigins, RotationTurnsTheAxesAndTheProgramOffset) {
  EXPECT_EQ(readListing(twoMovesWith("",
                                     "SET_G5X_OFFSET(3, 10.0, 20.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_G92_OFFSET(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n"
                                     "SET_XY_ROTATION(90.0)\n"),
                        kAll),
            "NC_GOTO 1 2 3\n" +
                origin("MFG_NCAXIS_X_ORIG=8 MFG_NCAXIS_Y_ORIG=21 MFG_NCAXIS_Z_ORIG=3"
                       " MFG_NCAXIS_X_VECX=0 MFG_NCAXIS_Y_VECX=1 MFG_NCAXIS_Z_VECX=0"
                       " MFG_NCAXIS_X_VECY=-1 MFG_NCAXIS_Y_VECY=0 MFG_NCAXIS_Z_VECY=0"
                       " MFG_NCAXIS_X_VECZ=0 MFG_NCAXIS_Y_VECZ=0 MFG_NCAXIS_Z_VECZ=1",
                       "3") +
                "NC_GOTO 1 2 3\n");
}

TEST(ListingOrigins, OriginHasTheUnitOfTheText) {
  EXPECT_EQ(readListing(twoMovesWith("USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n",
                                     "SET_G5X_OFFSET(2, 1.5, 0.0, 0.0, 0.0, 0.0, 0.0)\n"),
                        kAll),
            "NC_GOTO 1 2 3\n" + origin(unturned("1.5", "0", "0"), "2") + "NC_GOTO 1 2 3\n");
}

TEST(ListingOrigins, SystemThatIsSetAgainHasNoLine) {
  EXPECT_EQ(
      readListing(twoMovesWith("", "SET_G5X_OFFSET(1, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"), kAll),
      "NC_GOTO 1 2 3\nNC_GOTO 1 2 3\n");
}

TEST(ListingOrigins, AnotherNumberForTheSameOffsetsIsAChangeWhereNumbersArePrinted) {
  const std::string listing = twoMovesWith("", "SET_G5X_OFFSET(2, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n");
  EXPECT_EQ(readListing(listing, kNumber),
            "NC_GOTO 1 2 3\n" + origin(unturned("0", "0", "0"), "2") + "NC_GOTO 1 2 3\n");
  EXPECT_EQ(readListing(listing, kCoordinates), "NC_GOTO 1 2 3\nNC_GOTO 1 2 3\n");
}

// What is refused where the line of the table cannot say the change.
std::string lacking(std::string_view by, std::string_view words, int line = 4) {
  return std::to_string(line)
      .append(":14: this move uses another coordinate system than the moves before it (")
      .append(by)
      .append(" in line ")
      .append(std::to_string(line - 1))
      .append("); the NC_ORIGIN of the table has to print ")
      .append(words)
      .append(" for it, or convert the moves with --origins convert\n");
}
constexpr std::string_view kOrigins = "MFG_NCAXIS_X_ORIG, MFG_NCAXIS_Y_ORIG and MFG_NCAXIS_Z_ORIG";

TEST(ListingOrigins, NumberSaysNothingOfAProgramOffset) {
  EXPECT_EQ(
      readListing(twoMovesWith("", "SET_G92_OFFSET(0.0, 0.0, 7.0, 0.0, 0.0, 0.0)\n"), kNumber),
      "NC_GOTO 1 2 3\n" + lacking("SET_G92_OFFSET", kOrigins));
}

TEST(ListingOrigins, NumberNamesOnePlaceOnly) {
  EXPECT_EQ(
      readListing(twoMovesWith("", "SET_G5X_OFFSET(1, 5.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"), kNumber),
      "NC_GOTO 1 2 3\n" + lacking("SET_G5X_OFFSET", kOrigins));
  // The offset of the second system becomes that of the first, which the text is in.
  const std::string two = "SET_G5X_OFFSET(2, 5.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n" + std::string(kMove);
  const std::string one = "SET_G5X_OFFSET(1, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n" + std::string(kMove);
  EXPECT_EQ(
      readListing(twoMovesWith("", two + one + "SET_G5X_OFFSET(2, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"),
                  kNumber),
      "NC_GOTO 1 2 3\n" + origin(unturned("5", "0", "0"), "2") + "NC_GOTO 1 2 3\n" +
          origin(unturned("0", "0", "0"), "1") + "NC_GOTO 1 2 3\n" +
          lacking("SET_G5X_OFFSET", kOrigins, 8));
  EXPECT_EQ(readListing(twoMovesWith("", two + one), kNumber),
            "NC_GOTO 1 2 3\n" + origin(unturned("5", "0", "0"), "2") + "NC_GOTO 1 2 3\n" +
                origin(unturned("0", "0", "0"), "1") + "NC_GOTO 1 2 3\nNC_GOTO 1 2 3\n");
}

TEST(ListingOrigins, NumberIsFromOneToNine) {
  for (const std::string_view number : {"0", "-1", "10", "2147483647"}) {
    const std::string call =
        "SET_G5X_OFFSET(" + std::string(number) + ", 5.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n";
    EXPECT_EQ(readListing(twoMovesWith("", call), kNumber),
              "NC_GOTO 1 2 3\n" + lacking("SET_G5X_OFFSET", kOrigins));
  }
}

TEST(ListingOrigins, LineThatPrintsNothingOfItIsRefused) {
  EXPECT_EQ(readListing(twoMovesWith("", "SET_G5X_OFFSET(2, 5.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"),
                        printing({false, false, true})),
            "NC_GOTO 1 2 3\n" + lacking("SET_G5X_OFFSET", kOrigins));
}

TEST(ListingOrigins, CoordinatesSayNothingOfARotation) {
  const std::string listing = twoMovesWith("", "SET_XY_ROTATION(30.0)\n");
  const std::string refused =
      "NC_GOTO 1 2 3\n" + lacking("SET_XY_ROTATION", "MFG_NCAXIS_X_VECX and MFG_NCAXIS_Y_VECX");
  EXPECT_EQ(readListing(listing, kCoordinates), refused);
  EXPECT_EQ(readListing(listing, printing({true, true, false})), refused);
}

// The system of the first move is stated whole, or not at all: then nothing may change.
TEST(ListingOrigins, FirstSystemThatTheLineCannotSayIsTheOnlyOne) {
  constexpr std::string_view kRotated = "SET_XY_ROTATION(90.0)\n";
  constexpr std::string_view kShifted = "SET_G92_OFFSET(50.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n";
  constexpr std::string_view kSecond = "SET_G5X_OFFSET(2, 5.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n";
  constexpr std::string_view kNoShift = "SET_G92_OFFSET(0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n";
  EXPECT_EQ(readListing(twoMovesWith(kRotated, ""), kCoordinates),
            "NC_GOTO 1 2 3\nNC_GOTO 1 2 3\n");
  EXPECT_EQ(
      readListing(twoMovesWith(kRotated, kSecond), kCoordinates),
      "NC_GOTO 1 2 3\n" + lacking("SET_G5X_OFFSET", "MFG_NCAXIS_X_VECX and MFG_NCAXIS_Y_VECX", 5));
  EXPECT_EQ(readListing(twoMovesWith(kShifted, ""), kNumber), "NC_GOTO 1 2 3\nNC_GOTO 1 2 3\n");
  EXPECT_EQ(
      readListing(twoMovesWith(kShifted, std::string(kSecond).append(kNoShift)), kNumber),
      "NC_GOTO 1 2 3\n6:14: this move uses another coordinate system than the moves before it "
      "(SET_G92_OFFSET in line 5); the NC_ORIGIN of the table has to print " +
          std::string(kOrigins) + " for it, or convert the moves with --origins convert\n");
}

TEST(ListingOrigins, OtherAnglesAreRefusedInEveryWay) {
  const std::string listing = twoMovesWith("", "SET_G5X_OFFSET(2, 0.0, 0.0, 0.0, 0.0, 0.0, 5.0)\n");
  for (const host::ListingOptions& options : {kNumber, kAll, converting()}) {
    EXPECT_EQ(readListing(listing, options),
              "NC_GOTO 1 2 3\n4:14: this move uses another coordinate system than the moves before "
              "it (SET_G5X_OFFSET in line 3); its rotary words mean other angles; create the "
              "listing without rotary offsets\n");
  }
}

TEST(ListingOrigins, ConvertedMovesAreInTheFirstSystem) {
  EXPECT_EQ(readListing(twoMovesWith("SET_G5X_OFFSET(1, 100.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n",
                                     "SET_G5X_OFFSET(2, 10.0, 20.0, -30.0, 0.0, 0.0, 0.0)\n"),
                        converting()),
            "NC_GOTO 1 2 3\nNC_GOTO -89 22 -27\n");
}

TEST(ListingOrigins, ConversionTakesBackTheFirstSystemsRotationAndProgramOffset) {
  // The point 1 2 3 of the second system is at 11 22 3 of the machine. The first one has its axis X
  // along Y and its point 0 at 8 21: the point is at 1 -3 from there.
  EXPECT_EQ(readListing(twoMovesWith("SET_G5X_OFFSET(1, 10.0, 20.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_G92_OFFSET(1.0, 2.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_XY_ROTATION(90.0)\n",
                                     "SET_G92_OFFSET(0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_XY_ROTATION(0.0)\n"),
                        converting()),
            "NC_GOTO 1 2 3\nNC_GOTO 1 -3 3\n");
}

TEST(ListingOrigins, FirstSystemAgainLeavesPositionsAsTheyAre) {
  EXPECT_EQ(readListing(twoMovesWith("SET_G5X_OFFSET(1, 0.1, 0.0, 0.0, 0.0, 0.0, 0.0)\n",
                                     "SET_G5X_OFFSET(2, 0.2, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "STRAIGHT_TRAVERSE(0.7, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "SET_G5X_OFFSET(1, 0.1, 0.0, 0.0, 0.0, 0.0, 0.0)\n"),
                        converting()),
            "NC_GOTO 1 2 3\nNC_RAPID\nNC_GOTO 0.7999999999999999 0 0\nNC_GOTO 1 2 3\n");
}

TEST(ListingOrigins, ConversionUsesTheUnitOfTheText) {
  EXPECT_EQ(readListing(twoMovesWith("",
                                     "USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
                                     "SET_G5X_OFFSET(2, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
                                     "USE_LENGTH_UNITS(CANON_UNITS_MM)\n"),
                        converting()),
            "NC_GOTO 1 2 3\nNC_GOTO 26.4 2 3\n");
}

TEST(ListingOrigins, ArcsAndHelicesAreConvertedWhole) {
  constexpr std::string_view kQuarterTurn = "SET_XY_ROTATION(90.0)\n";
  const std::string arc =
      "STRAIGHT_FEED(10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
      "ARC_FEED(0.0, 10.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)\n";
  EXPECT_EQ(readListing(twoMovesWith("", std::string(kQuarterTurn) + arc), converting())
                .substr(std::string_view("NC_GOTO 1 2 3\n").size()),
            "NC_GOTO 0 10 0\n"
            "NC_CIRCLE1 along -1 0 0 center 0 0 0 radius 10 normal 0 0 1 to -10 0 0 at -10 0 0\n"
            "NC_GOTO -2 1 3\n");
  const std::string helix =
      "STRAIGHT_FEED(10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n"
      "ARC_FEED(10.0, 0.0, 0.0, 0.0, 1, 4.0, 0.0, 0.0, 0.0)\n";
  EXPECT_EQ(
      readListing(twoMovesWith("", std::string(kQuarterTurn) + helix), converting())
          .substr(std::string_view("NC_GOTO 1 2 3\n").size()),
      "NC_GOTO 0 10 0\n"
      "NC_HELICAL_INTERPOLATION along -1 0 0 center 0 0 0 radius 10 axis 0 0 1 from 0 10 0 to 0 10 "
      "4 pitch 4 at 0 10 4\n"
      "NC_GOTO -2 1 3\n");
  // An arc in the plane XZ is in the plane YZ after a quarter turn.
  const std::string upright =
      "SELECT_PLANE(CANON_PLANE_XZ)\n"
      "STRAIGHT_FEED(0.0, 0.0, 10.0, 0.0, 0.0, 0.0)\n"
      "ARC_FEED(0.0, 10.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)\n";
  EXPECT_EQ(readListing(twoMovesWith("", std::string(kQuarterTurn) + upright), converting()),
            "NC_GOTO 1 2 3\nNC_GOTO 0 0 10\n"
            "NC_CYLNDR1 along 0 1 0 center 0 0 0 radius 10 normal -1 0 0 to 0 10 0 at 0 10 0\n"
            "NC_GOTO -2 1 3\n");
}

// Rates of moves that only turn are in degrees: they are not written, and counted.
TEST(ListingFrames, MoveThatOnlyTurnsAfterAChangeOfTheOffsetsHasNoRate) {
  constexpr std::string_view kBefore =
      "SET_FEED_RATE(100.0)\nSTRAIGHT_FEED(1.0, 2.0, 30.0, 0.0, 0.0, 0.0)\n";
  constexpr std::string_view kTurn = "SET_FEED_RATE(500.0)\n";
  struct Case {
    std::string_view change;
    std::string_view turn;
  };
  constexpr Case kCases[] = {
      {"USE_TOOL_LENGTH_OFFSET(0.0 0.0 25.0, 0.0 0.0 0.0, 0.0 0.0 0.0)\n",
       "STRAIGHT_FEED(1.0, 2.0, 5.0, 90.0, 0.0, 0.0)\n"},
      {"SET_G5X_OFFSET(2, 10.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n",
       "STRAIGHT_FEED(-9.0, 2.0, 30.0, 90.0, 0.0, 0.0)\n"},
  };
  host::ListingOptions options = rotary("A:table:X");
  options.convertsOrigins = true;
  for (const auto& [change, turn] : kCases) {
    const std::string calls = std::string(kBefore).append(change).append(kTurn).append(turn);
    EXPECT_EQ(readListing(program(calls), options).find("500"), std::string::npos);
    EXPECT_NE(countCalls(program(calls), options).find("says more STRAIGHT_FEED 1"),
              std::string::npos);
    // One that moves as well has its rate.
    const std::string other = calls + "STRAIGHT_FEED(2.0, 2.0, 5.0, 0.0, 0.0, 0.0)\n";
    EXPECT_NE(readListing(program(other), options).find("NC_FEEDRATE 500 LINEARFEEDRATE"),
              std::string::npos);
  }
}

TEST(ListingFrames, ArcAfterOffsetsThatAreSetAgainIsWritten) {
  constexpr std::string_view kQuarter = "ARC_FEED(2.0, 1.0, 1.0, 1.0, 1, 3.0, 0.0, 0.0, 0.0)\n";
  for (const std::string_view call :
       {"SET_G5X_OFFSET(1, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n",
        "USE_TOOL_LENGTH_OFFSET(0.0 0.0 0.0, 0.0 0.0 0.0, 0.0 0.0 0.0)\n"}) {
    const std::string calls = std::string(kMove).append(call).append(kQuarter);
    EXPECT_EQ(countCalls(program(calls)).find("lost"), std::string::npos) << call;
    EXPECT_NE(readListing(program(calls)).find("NC_CIRCLE1"), std::string::npos) << call;
  }
  // In another system the arc begins at another place.
  const std::string moved =
      std::string(kMove) + "SET_G92_OFFSET(5.0, 0.0, 0.0, 0.0, 0.0, 0.0)\n" + std::string(kQuarter);
  EXPECT_NE(countCalls(program(moved), converting()).find("lost ARC_FEED 1"), std::string::npos);
}

}  // namespace
