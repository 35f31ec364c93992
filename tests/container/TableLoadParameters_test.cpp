#include "tests/container/TableLoading.h"

namespace ppword::test {
namespace {

TEST_F(TableLoad, MultiListIsMadeWithItsWords) {
  EXPECT_EQ(reportOf("*START_LIST MFG_UNIT\nMMPM,MMPR\nINPM\n*END\n"),
            Texts{"MultiList 1 «MFG_UNIT» Created"});
  EXPECT_EQ(entry("MFG_UNIT"),
            "MFG_UNIT : MfgPPParameter\n"
            "  MultiListValue: MMPM\n"
            "  MultiListValue: MMPR\n"
            "  MultiListValue: INPM\n");
}

TEST_F(TableLoad, MultiListReplacesTheWordsBefore) {
  multiList("MFG_UNIT", {"A", "B", "C"});
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf("*START_LIST MFG_UNIT\nMMPM\n*END\n"),
            Texts{"MultiList 1 «MFG_UNIT» Replaced"});
  EXPECT_EQ(entry("MFG_UNIT"), "MFG_UNIT : MfgPPParameter\n  MultiListValue: MMPM\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, MultiListWithoutWordsIsSetAndEmpty) {
  multiList("MFG_UNIT", {"A"});
  EXPECT_EQ(reportOf("*START_LIST MFG_UNIT\n*END\n"), Texts{"MultiList 1 «MFG_UNIT» Replaced"});
  EXPECT_EQ(entry("MFG_UNIT"), "MFG_UNIT : MfgPPParameter\n  MultiListValue empty\n");
}

TEST_F(TableLoad, MultiListInsideACommandCounts) {
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\n"
                     "A/1\n"
                     "*START_LIST MFG_UNIT\n"
                     "MMPM\n"
                     "*END\n"
                     "B/2\n"
                     "*END\n"),
            (Texts{"Command 1 «NC_ONE» Created", "MultiList 1 «MFG_UNIT» Created"}));
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n  Syntaxe: A/1\n  Syntaxe: B/2\n");
  EXPECT_EQ(entry("MFG_UNIT"), "MFG_UNIT : MfgPPParameter\n  MultiListValue: MMPM\n");
}

TEST_F(TableLoad, MultiListWithoutAReadableNameIsSkipped) {
  EXPECT_EQ(reportOf("*START_LIST X MFG_A\nV\n*END\n*START_LIST MFG_B\nW\n*END\n"),
            (Texts{"MultiList 1 «» NameUnreadable", "MultiList 2 «MFG_B» Created"}));
  EXPECT_EQ(entry("MFG_A"), "no type");
  EXPECT_EQ(entry("MFG_B"), "MFG_B : MfgPPParameter\n  MultiListValue: W\n");
}

TEST_F(TableLoad, MultiListWithUnreadableWordsIsMadeOrEmptied) {
  EXPECT_EQ(reportOf("*START_LIST MFG_NEW\nV\n*ENDX\n"),
            Texts{"MultiList 1 «MFG_NEW» ContentUnreadable"});
  EXPECT_EQ(entry("MFG_NEW"), "MFG_NEW : MfgPPParameter\n  MultiListValue unset\n");
  multiList("MFG_OLD", {"A"});
  EXPECT_EQ(reportOf("*START_LIST MFG_OLD\nV\n*ENDX\n"),
            Texts{"MultiList 1 «MFG_OLD» ContentUnreadable"});
  EXPECT_EQ(entry("MFG_OLD"), "MFG_OLD : MfgPPParameter\n  MultiListValue empty\n");
}

TEST_F(TableLoad, MultiListIntoATypeWithAFormatChangesNothing) {
  format("MFG_UNIT", "%11.5f");
  EXPECT_EQ(reportOf("*START_LIST MFG_UNIT\nMMPM\n*END\n"),
            Texts{"MultiList 1 «MFG_UNIT» NotDeclared"});
  EXPECT_EQ(entry("MFG_UNIT"), "MFG_UNIT : MfgPPParameter\n  Format: %11.5f\n");
}

TEST_F(TableLoad, ListsThatOverlapAreReadToABound) {
  constexpr int kLists = 6000;
  std::string table;
  for (int list = 1; list <= kLists; ++list) {
    table += "*START_LIST MFG_" + std::to_string(list) + "\n";
  }
  for (int list = 1; list <= kLists; ++list) table += "*END\n";
  const Texts report = reportOf(table);
  ASSERT_EQ(report.size(), 6000U);
  EXPECT_EQ(report[0], "MultiList 1 «MFG_1» Created");
  EXPECT_EQ(report[5999], "MultiList 6000 «MFG_6000» ContentUnreadable");
}

TEST_F(TableLoad, FormatIsMadeWithItsText) {
  EXPECT_EQ(reportOf("*START_FORMAT MFG_A\n%8.3f\n*END\n"), Texts{"Format 1 «MFG_A» Created"});
  EXPECT_EQ(entry("MFG_A"), "MFG_A : MfgPPParameter\n  Format: %8.3f\n");
}

TEST_F(TableLoad, FormatReplacesTheTextBefore) {
  format("MFG_A", "%11.5f");
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf("*START_FORMAT MFG_A\n%8.3f\n*END\n"), Texts{"Format 1 «MFG_A» Replaced"});
  EXPECT_EQ(entry("MFG_A"), "MFG_A : MfgPPParameter\n  Format: %8.3f\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, FormatWithoutATextIsSetToTheEmptyText) {
  format("MFG_A", "%11.5f");
  EXPECT_EQ(reportOf("*START_FORMAT MFG_A\n*END\n"), Texts{"Format 1 «MFG_A» Replaced"});
  EXPECT_EQ(entry("MFG_A"), "MFG_A : MfgPPParameter\n  Format: \n");
}

TEST_F(TableLoad, FormatWithoutAReadableNameIsSkipped) {
  EXPECT_EQ(reportOf("*START_FORMAT X MFG_A\n%f\n*END\n*START_FORMAT MFG_B\n%e\n*END\n"),
            (Texts{"Format 1 «» NameUnreadable", "Format 2 «MFG_B» Created"}));
  EXPECT_EQ(entry("MFG_A"), "no type");
  EXPECT_EQ(entry("MFG_B"), "MFG_B : MfgPPParameter\n  Format: %e\n");
}

TEST_F(TableLoad, FormatIntoATypeThatDeclaresNoneChangesNothing) {
  make("MFG_BARE", "MfgPPParameter");
  multiList("MFG_WORDS", {"A"});
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf("*START_FORMAT MFG_BARE\n%f\n*END\n*START_FORMAT MFG_WORDS\n%f\n*END\n"),
            (Texts{"Format 1 «MFG_BARE» NotDeclared", "Format 2 «MFG_WORDS» NotDeclared"}));
  EXPECT_EQ(entry("MFG_BARE"), "MFG_BARE : MfgPPParameter\n");
  EXPECT_EQ(entry("MFG_WORDS"), "MFG_WORDS : MfgPPParameter\n  MultiListValue: A\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, ParameterNamedInBothSectionsKeepsTheFirstKind) {
  EXPECT_EQ(reportOf("*START_FORMAT MFG_A\n%f\n*END\n*START_LIST MFG_A\nV\n*END\n"),
            (Texts{"MultiList 1 «MFG_A» Created", "Format 1 «MFG_A» NotDeclared"}));
  EXPECT_EQ(entry("MFG_A"), "MFG_A : MfgPPParameter\n  MultiListValue: V\n");
}

}  // namespace
}  // namespace ppword::test
