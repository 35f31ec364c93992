// A text is compared with its input.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "tests/support/Mutator.h"
#include "tests/verify/WrittenTexts.h"

namespace {

constexpr std::string_view kMoves = R"({"nc":"NC_RAPID"})"
                                    "\n"
                                    R"({"nc":"NC_GOTO","points":[[1.25,2,3],[4,5.5,-6]]})";

constexpr std::string_view kMovesText =
    "RAPID\n"
    "GOTO/    1.25000,    2.00000,    3.00000\n"
    "GOTO/    4.00000,    5.50000,   -6.00000\n";

std::string compared(std::string_view lines, std::string_view text, std::string_view table = "") {
  return comparisonOf(writeJob(lines, table), text);
}

TEST(Comparison, TextsOfTheExamplesAgree) {
  for (const std::string_view job :
       {"arcs", "drilling", "five-axis", "helix", "sequential", "turning"}) {
    for (const std::string_view table :
         {"", "mill.pptable", "mill-turn.pptable", "cldata.pptable"}) {
      const std::string input = std::string(job) + ".job.jsonl";
      const WrittenText written = writeText({input, table});
      EXPECT_TRUE(agrees(written, written.text)) << comparisonOf(written, written.text);
    }
  }
}

TEST(Comparison, TextThatWasPostedAgrees) {
  const WrittenText written = writeJob(kMoves);
  EXPECT_EQ(written.text, kMovesText);
  EXPECT_EQ(comparisonOf(written, written.text), "agrees, 3 elements, 3 verified, 1 own");
}

TEST(Comparison, BlanksOfArgumentsMeanNothing) {
  EXPECT_EQ(compared(kMoves, "  RAPID\nGOTO / 1.25,2.,3\r\nGOTO/4,$\n 5.5,-6.\n"),
            "agrees, 3 elements, 3 verified, 1 own");
}

TEST(Comparison, NumbersAreComparedToHalfAUnitOfTheirLastDigit) {
  EXPECT_EQ(compared(kMoves, "RAPID\nGOTO/1.2,2,3\nGOTO/4,5.5,-6\n"),
            "agrees, 3 elements, 3 verified, 1 own");
  EXPECT_EQ(compared(kMoves, "RAPID\nGOTO/1.3,2,3\nGOTO/4,5.5,-6\n"),
            "agrees, 3 elements, 3 verified, 1 own");
  EXPECT_EQ(compared(kMoves, "RAPID\nGOTO/1.31,2,3\nGOTO/4,5.5,-6\n"),
            "2:6 1.31 | 1.25 | 3 NC_GOTO, point 1");
  EXPECT_EQ(compared(kMoves, "RAPID\nGOTO/1.25,2,3\nGOTO/4,5.5,6\n"),
            "3:12 6 | -6 | 3 NC_GOTO, point 2");
}

TEST(Comparison, FirstDifferenceHasBothPlaces) {
  EXPECT_EQ(compared(kMoves, "GOTO/1.25,2,3\nGOTO/4,5.5,-6\n"),
            "1:1 GOTO/1.25,2,3 | RAPID | 2 NC_RAPID");
  EXPECT_EQ(compared(kMoves, "RAPID\nGOTO/1.25,2,3\n"),
            "0:0  | GOTO/4,5.5,-6 | 3 NC_GOTO, point 2");
  EXPECT_EQ(compared(kMoves, std::string(kMovesText) + "RAPID\n"), "4:1 RAPID |  | 0 ");
  EXPECT_EQ(compared(kMoves, "RAPID\nGOTO/1.25,2,3,0,0,1\nGOTO/4,5.5,-6\n"),
            "2:14 GOTO/1.25,2,3,0,0,1 | GOTO/1.25,2,3 | 3 NC_GOTO, point 1");
}

TEST(Comparison, TextsAreComparedCharacterByCharacter) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_OUTPUT_COMMENT\nPPRINT %MFG_OUTPUT_COMMENT\n*END\n";
  constexpr std::string_view kComment =
      R"j({"nc":"NC_OUTPUT_COMMENT","comment":"50% OF 3, $ (A/B)"})j";
  EXPECT_EQ(compared(kComment, "PPRINT 50% OF 3, $ (A/B)\n", kTable),
            "agrees, 1 elements, 1 verified, 0 own");
  EXPECT_EQ(compared(kComment, "PPRINT 50% OF  3, $ (A/B)\n", kTable),
            "1:15 PPRINT 50% OF  3, $ (A/B) | PPRINT 50% OF 3, $ (A/B) | 2 NC_OUTPUT_COMMENT");
}

TEST(Comparison, BareCommentThatAReaderTakesForTwoLinesDiffers) {
  const WrittenText written = writeJob(R"({"nc":"NC_OUTPUT_COMMENT","comment":"PRICE $"})"
                                       "\n"
                                       R"({"nc":"NC_RAPID"})");
  EXPECT_EQ(written.text, "PRICE $\nRAPID\n");
  EXPECT_EQ(comparisonOf(written, written.text), "2:1 PRICE RAPID | PRICE $ | 2 NC_OUTPUT_COMMENT");
}

TEST(Comparison, OwnStatementsOfATableAreCountedInTheirInstruction) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_TOOL_CHANGE\nCOOLNT/OFF\nLOADTL/%MFG_TOOL_NUMBER\n*END\n";
  constexpr std::string_view kChange =
      R"({"activity":"A","parameters":{"MFG_TOOL_NUMBER":{"integer":3}}})"
      "\n"
      R"({"nc":"NC_TOOL_CHANGE"})";
  EXPECT_EQ(compared(kChange, "COOLNT/OFF\nLOADTL/3\n", kTable),
            "agrees, 1 elements, 2 verified, 1 own");
  EXPECT_EQ(compared(kChange, "LOADTL/3\n", kTable),
            "1:1 LOADTL/3 | COOLNT/OFF | 3 NC_TOOL_CHANGE");
  // Elsewhere such a statement changes what the text says.
  EXPECT_EQ(compared(kChange, "COOLNT/OFF\nLOADTL/3\nCOOLNT/OFF\n", kTable),
            "3:1 COOLNT/OFF |  | 0 ");
}

TEST(Comparison, LinesThatComputeAreNotVerified) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_GOTO\nGOTO/%MFG_XPOINT+1,%MFG_YPOINT,%MFG_ZPOINT\n*END\n";
  constexpr std::string_view kTwo = R"({"nc":"NC_GOTO","points":[[1,2,3],[4,5,6]]})";
  EXPECT_EQ(compared(kTwo, "GOTO/2,2,3\nGOTO/9,9,9\n", kTable),
            "agrees, 2 elements, 0 verified, 0 own; not verified NC_GOTO 2 from 2");
  EXPECT_EQ(compared(kTwo, "FROM/2,2,3\nGOTO/9,9,9\n", kTable),
            "1:1 FROM/2,2,3 | GOTO... | 2 NC_GOTO, point 1");
}

TEST(Comparison, UnknownWordsAreNotVerifiedUntilTheyAreMapped) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_GOTO\nMOVE/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n";
  const WrittenText written = writeJob(R"({"nc":"NC_GOTO","points":[[1,2,3]]})", kTable);
  EXPECT_EQ(comparisonOf(written, "MOVE/1,2,3\n"),
            "agrees, 1 elements, 0 verified, 0 own; not verified NC_GOTO 1 from 2");
  verify::Words words;
  ASSERT_TRUE(words.add("MOVE", "GOTO"));
  EXPECT_EQ(comparisonOf(written, "MOVE/1,2,3\n", words), "agrees, 1 elements, 1 verified, 0 own");
  EXPECT_EQ(comparisonOf(written, "MOVE/1,2,4\n", words), "1:10 4 | 3 | 2 NC_GOTO");
}

TEST(Comparison, InstructionsWithoutALineAreLeftOut) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_RAPID\n*END\n*START_NC_INSTRUCTION NC_DRILLING\nCYCLE/ON\n*END\n";
  EXPECT_EQ(compared(R"({"nc":"NC_RAPID"})"
                     "\n"
                     R"({"nc":"NC_DRILLING","points":[[1,2,3]]})",
                     "CYCLE/ON\n", kTable),
            "agrees, 2 elements, 1 verified, 1 own; left out NC_DRILLING 1 from 3; left out "
            "NC_RAPID 1 from 2");
}

TEST(Comparison, ArcThatEndsElsewhereIsNamed) {
  constexpr std::string_view kTable =
      "*START_NC_INSTRUCTION NC_CIRCLE1\n"
      "CIRCLE/%MFG_CIRCLE_X_CENTER,%MFG_CIRCLE_Y_CENTER,%MFG_CIRCLE_Z_CENTER\n"
      "GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n";
  constexpr std::string_view kArc =
      R"({"nc":"NC_CIRCLE1","circle":{"center":[0,0,0],"point":[1,0,0]}})";
  EXPECT_EQ(compared(kArc, "CIRCLE/0,0,0\nGOTO/0,0,0\n", kTable),
            "agrees, 1 elements, 2 verified, 0 own; other point NC_CIRCLE1 1 from 2");
}

TEST(Comparison, UnevaluatedParameterPrintsNothing) {
  EXPECT_EQ(compared(R"({"nc":"NC_COMPENSATION"})", "LOADTL/,\n"),
            "agrees, 1 elements, 1 verified, 0 own");
  EXPECT_EQ(compared(R"({"nc":"NC_COMPENSATION"})", "LOADTL/3,\n"),
            "1:8 LOADTL/3, | LOADTL/, | 2 NC_COMPENSATION");
}

TEST(Comparison, SequencesAndPpCommandsAreThoseOfTheDocument) {
  constexpr std::string_view kTable =
      "*START_NC_COMMAND NC_COOLANT\n*START_SEQUENCE\nCOOLNT/ON\n*END\n*START_SEQUENCE\n"
      "COOLNT/OFF\n*END\n*END\n";
  EXPECT_EQ(compared(R"({"nc":"NC_COOLANT","sequence":2})", "COOLNT/OFF\n", kTable),
            "agrees, 1 elements, 1 verified, 1 own");
  EXPECT_EQ(compared(R"({"nc":"NC_COOLANT","sequence":2})", "COOLNT/ON\n", kTable),
            "1:9 COOLNT/ON | COOLNT/OFF | 2 NC_COOLANT");
}

TEST(Comparison, UnknownInstructionIsRaised) {
  const verify::DocumentWords document;
  const verify::Words words;
  verify::Comparison comparison(document, words, [](verify::Statement&) { return false; });
  host::Element element;
  element.instruction = "NC_FOO";
  element.line = 7;
  try {
    comparison.put(host::ToolPathEvent(element));
    FAIL();
  } catch (const verify::UnknownInstruction& unknown) {
    EXPECT_EQ(unknown.name, "NC_FOO");
    EXPECT_EQ(unknown.place.line, 7);
  }
  element.ppCommand = 2;
  EXPECT_THROW(comparison.put(host::ToolPathEvent(element)), verify::UnknownInstruction);
}

/// A file of the tests.
std::string contentOf(const std::string& name) {
  std::ifstream file(PPWORD_SOURCE_DIR "/tests/" + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Comparison, BuiltInInstructionsAgree) {
  std::string lines = contentOf("evaluation/default_instructions.jsonl");
  std::istringstream names(contentOf("evaluation/default_instructions.txt"));
  for (std::string name; std::getline(names, name);) {
    const bool isName = name.starts_with("NC_") || name.starts_with("PPCommand");
    if (isName) lines += "{\"nc\":\"" + name + "\"}\n";
  }
  const WrittenText written = writeJob(lines);
  // NC_CUTTER_LATHE computes; two lines have words that are not of APT; RAPID says no point.
  const std::string result = comparisonOf(written, written.text);
  EXPECT_EQ(result.substr(0, 19), "agrees, 81 elements") << result;
  EXPECT_EQ(result.substr(std::min(result.find(';'), result.size())),
            "; not verified NC_CUTTER_LATHE 1 from 70; not verified NC_HEAD_CHANGE 1 from 78; not "
            "verified NC_MILL_TURRET_INVERSION 1 from 79; left out NC_RAPID 1 from 3");
}

TEST(Comparison, WayOfTheSpindleNeedsBothWords) {
  const WrittenText written =
      writeJob(R"({"nc":"NC_SPINDLE_START","spindle":{"value":100,"type":"angular"}})",
               "*START_LIST MFG_SPNDL_WAY\nCLW\n*END\n");
  EXPECT_EQ(written.text, "SPINDL/  100.0000,RPM,\n");
  EXPECT_EQ(comparisonOf(written, written.text), "agrees, 1 elements, 1 verified, 0 own");
}

TEST(Comparison, DollarAfterANameDoesNotContinueALine) {
  const WrittenText written =
      writeJob(R"({"nc":"NC_A","points":[[1,2,3]]})",
               "*START_NC_COMMAND NC_A\nA/%MFG_XPOINT$\nB/%MFG_YPOINT\n*END\n");
  EXPECT_EQ(written.text, "A/    1.00000\nB/    2.00000\n");
  EXPECT_EQ(comparisonOf(written, written.text),
            "agrees, 1 elements, 0 verified, 0 own; not verified NC_A 2 from 2");
}

TEST(Comparison, DamagedTextsAreCompared) {
  const unsigned seed = chosenSeed();
  Mutator mutator(seed, "$,/()%& \t\n0123456789.-E");
  const WrittenText written = writeText({"helix.job.jsonl"});
  for (int round = 0; round < 1000; ++round) {
    const std::string damaged = mutator.mutate(written.text);
    EXPECT_FALSE(comparisonOf(written, damaged).empty()) << "seed " << seed;
  }
}

}  // namespace
