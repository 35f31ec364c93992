#include "tests/container/TableLoading.h"

namespace ppword::test {
namespace {

TEST_F(TableLoad, CommandsAreMadeBeforeInstructions) {
  EXPECT_EQ(reportOf("*START_NC_INSTRUCTION NC_TWO\n"
                     "TWO/2\n"
                     "*END\n"
                     "*START_NC_COMMAND NC_ONE\n"
                     "ONE/%MFG_A,%MFG_B\n"
                     "PPRINT MOVE TO POINT\n"
                     "*END\n"),
            (Texts{"Command 1 «NC_ONE» Created", "Command 2 «NC_TWO» Created"}));
  const auto entries = listing(features);
  EXPECT_EQ(Texts(entries.begin() + 4, entries.end()), (Texts{"NC_ONE : MfgPPSyntax\n"
                                                              "  Syntaxe: ONE/%MFG_A,%MFG_B\n"
                                                              "  Syntaxe: PPRINT MOVE TO POINT\n",
                                                              "NC_TWO : MfgPPSyntax\n"
                                                              "  Syntaxe: TWO/2\n"}));
}

TEST_F(TableLoad, CommandWithoutLinesIsSetAndEmpty) {
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\n*END\n"), Texts{"Command 1 «NC_ONE» Created"});
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n  Syntaxe empty\n");
}

TEST_F(TableLoad, BytesOfALineAreKept) {
  load("*START_NC_COMMAND NC_ONE\nA/\xFF\xC3\x28\n*END\n");
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n  Syntaxe: A/\xFF\xC3\x28\n");
}

TEST_F(TableLoad, NewTypesHoldTheOnlyNewReferences) {
  const int root = find("MfgPPSyntax")->GetReferenceCount();
  const int container = features->GetReferenceCount();
  load(
      "*START_NC_COMMAND NC_ONE\n"
      "A/1\n"
      "*START_SEQUENCE\n"
      "B/1\n"
      "*END\n"
      "*START_SEQUENCE\n"
      "C/1\n"
      "*END\n"
      "*END\n");
  // The container holds the type, and the handle that asks.
  EXPECT_EQ(find("NC_ONE")->GetReferenceCount(), 2);
  EXPECT_EQ(find("MfgPPSyntax")->GetReferenceCount(), root + 1);
  EXPECT_EQ(features->GetReferenceCount(), container);
}

TEST_F(TableLoad, SpindleStopNeverEntersTheContainer) {
  EXPECT_EQ(
      reportOf("*START_NC_COMMAND NC_SPINDLE_STOP\n"
               "SPINDL/OFF\n"
               "*START_SEQUENCE\n"
               "A\n"
               "*END\n"
               "*START_SEQUENCE\n"
               "B\n"
               "*END\n"
               "*END\n"
               "*START_NC_INSTRUCTION NC_SPINDLE_STOP\n"
               "SPINDL/OFF\n"
               "*END\n"
               "*START_NC_INSTRUCTION NC_SPINDLE_STOP2\n"
               "SPINDL/OFF\n"
               "*END\n"),
      (Texts{"Command 1 «NC_SPINDLE_STOP» NeverLoaded", "Command 2 «NC_SPINDLE_STOP» NeverLoaded",
             "Command 3 «NC_SPINDLE_STOP2» Created"}));
  EXPECT_EQ(entry("NC_SPINDLE_STOP"), "no type");
}

TEST_F(TableLoad, SpindleStopThatIsThereIsLeftAlone) {
  instruction("NC_SPINDLE_STOP", {"OLD/1"});
  load("*START_NC_COMMAND NC_SPINDLE_STOP\nSPINDL/OFF\n*END\n");
  EXPECT_EQ(entry("NC_SPINDLE_STOP"), "NC_SPINDLE_STOP : MfgPPSyntax\n  Syntaxe: OLD/1\n");
}

TEST_F(TableLoad, CommandWithoutAReadableNameIsSkipped) {
  EXPECT_EQ(reportOf("*START_NC_COMMAND X NC_ONE\n"
                     "ONE/1\n"
                     "*END\n"
                     "*START_NC_COMMAND NC_TWO\n"
                     "TWO/2\n"
                     "*END\n"),
            (Texts{"Command 1 «» NameUnreadable", "Command 2 «NC_TWO» Created"}));
  EXPECT_EQ(entry("NC_ONE"), "no type");
  EXPECT_EQ(entry("NC_TWO"), "NC_TWO : MfgPPSyntax\n  Syntaxe: TWO/2\n");
}

TEST_F(TableLoad, CommandWithUnreadableLinesIsSkipped) {
  instruction("NC_OLD", {"OLD/1"});
  EXPECT_EQ(
      reportOf("*START_NC_COMMAND NC_NEW\n"
               "*INSERT NOTHING NC_ELSE\n"
               "*END\n"
               "*START_NC_COMMAND NC_OLD\n"
               "*INSERT NOTHING NC_ELSE\n"
               "*END\n"),
      (Texts{"Command 1 «NC_NEW» ContentUnreadable", "Command 2 «NC_OLD» ContentUnreadable"}));
  EXPECT_EQ(entry("NC_NEW"), "no type");
  EXPECT_EQ(entry("NC_OLD"), "NC_OLD : MfgPPSyntax\n  Syntaxe: OLD/1\n");
}

TEST_F(TableLoad, LinesInsertedManyTimesAreBounded) {
  std::string table;
  for (int user = 1; user <= 20; ++user) {
    table += "*START_NC_COMMAND NC_USER" + std::to_string(user) + "\n*INSERT NC_0\n*END\n";
  }
  for (int half = 0; half < 16; ++half) {
    const std::string insert = "*INSERT NC_" + std::to_string(half + 1) + "\n";
    table.append("*START_NC_COMMAND NC_").append(std::to_string(half)).append("\n");
    table.append(insert).append(insert).append("*END\n");
  }
  table += "*START_NC_COMMAND NC_16\nRAPID\n*END\n";
  const Texts report = reportOf(table);
  ASSERT_EQ(report.size(), 37U);
  // 65,536 lines each.
  EXPECT_EQ(report[15], "Command 16 «NC_USER16» Created");
  EXPECT_EQ(report[16], "Command 17 «NC_USER17» ContentUnreadable");
  EXPECT_EQ(report[36], "Command 37 «NC_16» ContentUnreadable");
}

TEST_F(TableLoad, CommandWhoseSequencesCannotBeCountedIsSkipped) {
  EXPECT_EQ(reportOf("*END\n"
                     "*START_NC_COMMAND NC_ONE\n"
                     "*START_SEQUENCE\n"
                     "A/1\n"
                     "*END\n"),
            Texts{"Command 1 «NC_ONE» ContentUnreadable"});
  EXPECT_EQ(entry("NC_ONE"), "no type");
}

TEST_F(TableLoad, LinesOfTheLaterBlockOfANameStay) {
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\n"
                     "FIRST/1\n"
                     "*START_SEQUENCE\n"
                     "*END\n"
                     "*START_SEQUENCE\n"
                     "FIRST/2\n"
                     "*END\n"
                     "*END\n"
                     "*START_NC_COMMAND NC_ONE\n"
                     "LATER/1\n"
                     "*START_SEQUENCE\n"
                     "*END\n"
                     "*START_SEQUENCE\n"
                     "LATER/2\n"
                     "*END\n"
                     "*START_SEQUENCE\n"
                     "LATER/3\n"
                     "*END\n"
                     "*END\n"),
            (Texts{"Command 1 «NC_ONE» Created", "Sequence 2 «NC_ONE» Created",
                   "Command 2 «NC_ONE» Replaced", "Sequence 2 «NC_ONE» Replaced",
                   "Sequence 3 «NC_ONE» ContentUnreadable"}));
  // The lines and the number of sequences are those of the block; the further sequences are asked
  // for by name, which finds the first block.
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: LATER/1\n"
            "  Syntaxe2: FIRST/2\n");
}

TEST_F(TableLoad, CommandIntoATypeThatDeclaresNoSyntaxChangesNothing) {
  make("NC_ONE", "MfgPPSyntax");
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n"),
            Texts{"Command 1 «NC_ONE» NotDeclared"});
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n");
  EXPECT_EQ(referencesOf(document), counts);
}

}  // namespace
}  // namespace ppword::test
