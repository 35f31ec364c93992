#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/listing/Listings.h"

namespace {

/// What a listing gives with a document that has words for coolant and stops.
std::string readWithWords(std::string_view calls) {
  host::ListingOptions options;
  options.vocabulary.coolant = true;
  options.vocabulary.programStop = true;
  options.vocabulary.optionalStop = true;
  return readListing(program(calls), options);
}

TEST(ListingTool, ChangeNamesTheSelectedToolAndNotItsPlace) {
  EXPECT_EQ(readListing(program("SELECT_TOOL(7)\nSTART_CHANGE()\nCHANGE_TOOL(2)\n")),
            "activity MFG_TOOL_NUMBER=7\nNC_TOOL_CHANGE\n");
  EXPECT_EQ(readListing(program("SELECT_TOOL(7)\nSELECT_TOOL(12)\nCHANGE_TOOL(1)\n"
                                "SELECT_TOOL(3)\nCHANGE_TOOL(2)\n")),
            "activity MFG_TOOL_NUMBER=12\nNC_TOOL_CHANGE\n"
            "activity MFG_TOOL_NUMBER=3\nNC_TOOL_CHANGE\n");
}

TEST(ListingTool, ToolZeroEmptiesTheSpindle) {
  EXPECT_EQ(readListing(program("SELECT_TOOL(0)\nCHANGE_TOOL(0)\n")),
            "activity MFG_TOOL_NUMBER=0\nNC_TOOL_CHANGE\n");
}

TEST(ListingTool, NumberingTheToolInTheSpindleChangesNone) {
  EXPECT_EQ(readListing(program("SELECT_TOOL(3)\nCHANGE_TOOL_NUMBER(1)\n")), "");
}

TEST(ListingDwell, DwellGivesItsSeconds) {
  EXPECT_EQ(readListing(program("DWELL(1.5000)\nDWELL(0.0000)\nDWELL(0.0010)\n")),
            "activity MFG_DELAY_VALUE=1.5\nNC_DELAY\n"
            "activity MFG_DELAY_VALUE=0\nNC_DELAY\n"
            "activity MFG_DELAY_VALUE=0.001\nNC_DELAY\n");
}

TEST(ListingDwell, ActivityKeepsItsTool) {
  EXPECT_EQ(readListing(program("SELECT_TOOL(3)\nCHANGE_TOOL(1)\nDWELL(2.0000)\n")),
            "activity MFG_TOOL_NUMBER=3\nNC_TOOL_CHANGE\n"
            "activity MFG_TOOL_NUMBER=3 MFG_DELAY_VALUE=2\nNC_DELAY\n");
}

TEST(ListingCoolant, CallThatChangesTheCoolantGivesItsSequence) {
  struct Case {
    std::string_view subject, calls, expected;
  };
  const std::vector<Case> cases = {
      {"flood", "FLOOD_ON()\n", "NC_COOLANT\n"},
      {"mist", "MIST_ON()\n", "NC_COOLANT sequence 2\n"},
      {"first off, when nobody tells what ran before", "MIST_OFF()\nFLOOD_OFF()\n",
       "NC_COOLANT sequence 3\n"},
      {"on twice", "FLOOD_ON()\nFLOOD_ON()\n", "NC_COOLANT\n"},
      {"flood on and all off", "FLOOD_ON()\nMIST_OFF()\nFLOOD_OFF()\n",
       "NC_COOLANT\nNC_COOLANT sequence 3\n"},
      {"off twice", "FLOOD_ON()\nFLOOD_OFF()\nFLOOD_OFF()\n",
       "NC_COOLANT\nNC_COOLANT sequence 3\n"},
      {"one of two off", "MIST_ON()\nFLOOD_ON()\nMIST_OFF()\n",
       "NC_COOLANT sequence 2\nNC_COOLANT\nNC_COOLANT sequence 3\nNC_COOLANT\n"},
      {"on again", "FLOOD_ON()\nFLOOD_OFF()\nFLOOD_ON()\n",
       "NC_COOLANT\nNC_COOLANT sequence 3\nNC_COOLANT\n"},
  };
  for (const auto& [subject, calls, expected] : cases) {
    EXPECT_EQ(readWithWords(calls), expected) << subject;
  }
}

TEST(ListingCoolant, DocumentWithoutTheCommandHasNoLine) {
  EXPECT_EQ(readListing(program("FLOOD_ON()\nFLOOD_OFF()\nMIST_ON()\nMIST_OFF()\n")), "");
  EXPECT_EQ(countCalls(program("FLOOD_ON()\nMIST_OFF()\n")),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "other FLOOD_ON 1 from 2\n"
            "other MIST_OFF 1 from 3\n"
            "other FINISH 1 from 4\n");
}

TEST(ListingStop, DocumentWithTheInstructionHasItsLine) {
  EXPECT_EQ(readWithWords("PROGRAM_STOP()\nOPTIONAL_PROGRAM_STOP()\n"),
            "NC_PROGRAM_STOP\nNC_OPTIONAL_STOP\n");
}

TEST(ListingStop, StopWithoutALineSaysMoreThanTheText) {
  EXPECT_EQ(readListing(program("PROGRAM_STOP()\nOPTIONAL_PROGRAM_STOP()\n")), "");
  EXPECT_EQ(countCalls(program("PROGRAM_STOP()\nOPTIONAL_PROGRAM_STOP()\n")),
            "other USE_LENGTH_UNITS 1 from 1\n"
            "says more PROGRAM_STOP 1 from 2\n"
            "says more OPTIONAL_PROGRAM_STOP 1 from 3\n"
            "other FINISH 1 from 4\n");
}

TEST(ListingEnd, EndOfTheProgramHasItsLineAndEndOfTheFileNone) {
  EXPECT_EQ(readListing(numbered("PROGRAM_END()\n")), "NC_END_MACRO\n");
  EXPECT_EQ(readListing(numbered("FINISH()\n")), "");
}

TEST(ListingTexts, TextStandsInPiecesOfSixtyFourBytes) {
  const std::string sixtyFour(64, 'x');
  const std::string tenWords = "ten bytes ten bytes ten bytes ten bytes ten bytes ten bytes";
  struct Case {
    std::string subject, text, expected;
  };
  const std::vector<Case> cases = {
      {"the longest", sixtyFour, "<" + sixtyFour + ">"},
      {"a word that is longer", sixtyFour + "yz", "<" + sixtyFour + "><yz>"},
      {"cut at a blank", tenWords + " and more", "<" + tenWords + " and><more>"},
      {"cut at several blanks", tenWords + " and    more", "<" + tenWords + " and><more>"},
      {"blank behind the longest", sixtyFour + " y", "<" + sixtyFour + "><y>"},
      {"blanks at the end", "end" + std::string(80, ' '), "<end>"},
      {"blanks at the begin", "  begin", "<  begin>"},
      {"many blanks at the begin", std::string(80, ' ') + "begin", "<begin>"},
      {"nothing but blanks", std::string(80, ' '), ""},
      {"characters stay whole", std::string(63, 'x') + "\xc3\xa9z",
       "<" + std::string(63, 'x') + "><\xc3\xa9z>"},
      {"bytes that are no characters", std::string(66, '\x80'),
       "<" + std::string(64, '\x80') + "><\x80\x80>"},
  };
  for (const auto& [subject, text, expected] : cases) {
    std::string given = readListing(program("COMMENT(\"" + text + "\")\n"));
    for (const std::string_view part : {"NC_OUTPUT_COMMENT ", "\n"}) {
      for (std::size_t at = 0; (at = given.find(part)) != std::string::npos;) {
        given.erase(at, part.size());
      }
    }
    EXPECT_EQ(given, expected) << subject;
  }
}

}  // namespace
