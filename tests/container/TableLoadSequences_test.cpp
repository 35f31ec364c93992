#include "host/modeler/Container.h"
#include "tests/container/TableLoading.h"

namespace ppword::test {
namespace {

constexpr const char* kTwoSequences =
    "*START_NC_COMMAND NC_ONE\n"
    "NEW/1\n"
    "*START_SEQUENCE\n"
    "NEW/2\n"
    "*END\n"
    "*START_SEQUENCE\n"
    "NEW/3\n"
    "NEW/4\n"
    "*END\n"
    "*END\n";

TEST_F(TableLoad, FurtherSequenceBecomesAnAttributeOfItsOwn) {
  EXPECT_EQ(reportOf(kTwoSequences),
            (Texts{"Command 1 «NC_ONE» Created", "Sequence 2 «NC_ONE» Created"}));
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe: NEW/2\n"
            "  Syntaxe2: NEW/3\n"
            "  Syntaxe2: NEW/4\n");
}

TEST_F(TableLoad, FurtherSequenceWithoutLinesIsDeclaredAndUnset) {
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\n"
                     "*START_SEQUENCE\n"
                     "*END\n"
                     "*START_SEQUENCE\n"
                     "*END\n"
                     "*END\n"),
            (Texts{"Command 1 «NC_ONE» Created", "Sequence 2 «NC_ONE» Created"}));
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n  Syntaxe empty\n  Syntaxe2 unset\n");
}

TEST_F(TableLoad, ReplacedCommandLosesTheSequencesThatTheTableLacks) {
  threeSequences("NC_ONE");
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n"),
            Texts{"Command 1 «NC_ONE» Replaced"});
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe2 unset\n"
            "  Syntaxe3 unset\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, ReplacedSequenceHoldsTheNewLinesOnly) {
  threeSequences("NC_ONE");
  EXPECT_EQ(reportOf(kTwoSequences),
            (Texts{"Command 1 «NC_ONE» Replaced", "Sequence 2 «NC_ONE» Replaced"}));
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe: NEW/2\n"
            "  Syntaxe2: NEW/3\n"
            "  Syntaxe2: NEW/4\n"
            "  Syntaxe3 unset\n");
}

TEST_F(TableLoad, TwelveSequencesAreLoadedAndLostWithTheNextTable) {
  std::string table = "*START_NC_COMMAND NC_ONE\n";
  for (int i = 1; i <= 12; ++i) {
    table += "*START_SEQUENCE\nLINE/" + std::to_string(i) + "\n*END\n";
  }
  ASSERT_EQ(load(table + "*END\n"), S_OK);
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n  Syntaxe: LINE/1\n  Syntaxe2: LINE/2\n"
            "  Syntaxe3: LINE/3\n  Syntaxe4: LINE/4\n  Syntaxe5: LINE/5\n"
            "  Syntaxe6: LINE/6\n  Syntaxe7: LINE/7\n  Syntaxe8: LINE/8\n"
            "  Syntaxe9: LINE/9\n  Syntaxe10: LINE/10\n  Syntaxe11: LINE/11\n"
            "  Syntaxe12: LINE/12\n");
  KEPListValKEPUnicodeString lines;
  EXPECT_TRUE(KEPIMfgSyntaxEvaluation_var(find("NC_ONE"))->InstantiateSyntax(lines, 12));
  EXPECT_EQ(texts(lines), Texts{"LINE/12"});
  ASSERT_EQ(load("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n"), S_OK);
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n  Syntaxe: NEW/1\n  Syntaxe2 unset\n  Syntaxe3 unset\n"
            "  Syntaxe4 unset\n  Syntaxe5 unset\n  Syntaxe6 unset\n  Syntaxe7 unset\n"
            "  Syntaxe8 unset\n  Syntaxe9 unset\n  Syntaxe10 unset\n  Syntaxe11 unset\n"
            "  Syntaxe12 unset\n");
}

TEST_F(TableLoad, InstanceInheritsTheLoadedLines) {
  load(kTwoSequences);
  const auto instance =
      KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_ONE"), "One.1"));
  EXPECT_EQ(entryOf(instance),
            "One.1 : NC_ONE\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe: NEW/2\n"
            "  Syntaxe2: NEW/3\n"
            "  Syntaxe2: NEW/4\n");
}

TEST_F(TableLoad, LoadedTwiceStaysTheSame) {
  load(kTwoSequences);
  const auto once = listing(features);
  const auto counts = referencesOf(document);
  load(kTwoSequences);
  EXPECT_EQ(listing(features), once);
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, UnsettingStopsAtTheFirstSequenceThatIsNotDeclared) {
  const KEPISpecObject_var type = instruction("NC_ONE", {"OLD/1"});
  attribute(type, "Syntaxe3", {"OLD/3"});
  attribute(type, "Syntaxe4", {"OLD/4"});
  load("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n");
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe3: OLD/3\n"
            "  Syntaxe4: OLD/4\n");
}

TEST_F(TableLoad, UnsettingReachesTheOnlySequenceDeclared) {
  attribute(make("NC_ONE", "MfgPPSyntax"), "Syntaxe2", {"OLD/2"});
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n"),
            Texts{"Command 1 «NC_ONE» NotDeclared"});
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n  Syntaxe2 unset\n");
}

constexpr const char* kThreeSequences =
    "*START_NC_COMMAND NC_ONE\n"
    "*START_SEQUENCE\n"
    "NEW/1\n"
    "*END\n"
    "*START_SEQUENCE\n"
    "*INSERT NOTHING NC_ELSE\n"
    "*END\n"
    "*START_SEQUENCE\n"
    "NEW/3\n"
    "*END\n"
    "*END\n";

TEST_F(TableLoad, UnreadableSequenceIsSkipped) {
  EXPECT_EQ(reportOf(kThreeSequences),
            (Texts{"Command 1 «NC_ONE» Created", "Sequence 2 «NC_ONE» ContentUnreadable",
                   "Sequence 3 «NC_ONE» Created"}));
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe3: NEW/3\n");
}

TEST_F(TableLoad, SequenceBehindAGapIsAppendedTo) {
  load(kThreeSequences);
  load(kThreeSequences);
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe3: NEW/3\n"
            "  Syntaxe3: NEW/3\n");
}

TEST_F(TableLoad, UnsettingEndsWithTheDeclaredAttributes) {
  constexpr int kSequences = 100'000;
  const KEPISpecObject_var type = instruction("NC_ONE", {"OLD/1"});
  const KEPISpecAttrAccess_var attributes = type;
  for (int i = 2; i <= kSequences; ++i) {
    attribute(attributes, "Syntaxe" + std::to_string(i), {"OLD/2"});
  }
  load("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n");
  ASSERT_EQ(type->GetNumberOfAttributes(), kSequences);
  for (int i = 2; i <= kSequences; ++i) {
    const auto sequence = attributes->FindAttribute("Syntaxe" + std::to_string(i));
    ASSERT_TRUE(sequence.has_value() && !sequence->IsSet()) << i;
  }
}

TEST_F(TableLoad, BookkeepingAttributesAreLeftAlone) {
  const auto attributes =
      declared("NC_ONE", {"$OSM_Xts", "Syntaxe", "$OSM_LocalXts", "Syntaxe2", "Syntaxe3"});
  attributes->SetString("$OSM_Xts", "MODELER");
  for (const char* name : {"Syntaxe", "Syntaxe2", "Syntaxe3"}) {
    attributes->SetList(name, list({"OLD/1"}));
  }
  load(kTwoSequences);
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  $OSM_Xts: MODELER\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe: NEW/2\n"
            "  $OSM_LocalXts unset\n"
            "  Syntaxe2: NEW/3\n"
            "  Syntaxe2: NEW/4\n"
            "  Syntaxe3 unset\n");
}

TEST_F(TableLoad, SequenceIntoAnAttributeOfAnotherKindChangesNothing) {
  const KEPISpecAttrAccess_var type = instruction("NC_ONE", {"OLD/1"});
  type->AddAttribute("Syntaxe2", KEPISpecAttribute::Kind::Integer);
  EXPECT_EQ(reportOf(kTwoSequences),
            (Texts{"Command 1 «NC_ONE» Replaced", "Sequence 2 «NC_ONE» NotDeclared"}));
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe: NEW/2\n"
            "  Syntaxe2 unset\n");
}

TEST_F(TableLoad, FormatWithAnUnreadableTextIsMadeOrUnset) {
  EXPECT_EQ(reportOf("*START_FORMAT MFG_NEW\n%f\n*ENDX\n"),
            Texts{"Format 1 «MFG_NEW» ContentUnreadable"});
  EXPECT_EQ(entry("MFG_NEW"), "MFG_NEW : MfgPPParameter\n  Format unset\n");
  format("MFG_OLD", "%11.5f");
  EXPECT_EQ(reportOf("*START_FORMAT MFG_OLD\n%f\n*ENDX\n"),
            Texts{"Format 1 «MFG_OLD» ContentUnreadable"});
  EXPECT_EQ(entry("MFG_OLD"), "MFG_OLD : MfgPPParameter\n  Format unset\n");
}

}  // namespace
}  // namespace ppword::test
