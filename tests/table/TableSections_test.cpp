#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/table/TableFiles.h"

namespace {

// The values of list 1 of a table whose list has this body.
Texts valuesOf(const std::string& body) {
  const TableFile file("*START_LIST MFG_A\n" + body + "\n*END\n");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString values = listOf({"cleared"});
  EXPECT_TRUE(reader.GetValuesOfMultiListParameter(1, values)) << body;
  return texts(values);
}

std::string nameOfList(std::string_view table, int index) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  KEPString name = "untouched";
  if (reader.GetNameOfMultiListParameter(index, name)) return name.CastToCharPtr();
  EXPECT_EQ(name, KEPString("untouched"));
  return "(none)";
}

std::string nameOfFormat(std::string_view table, int index) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  KEPString name = "untouched";
  if (reader.GetNameOfFormatParameter(index, name)) return name.CastToCharPtr();
  EXPECT_EQ(name, KEPString("untouched"));
  return "(none)";
}

constexpr std::string_view kLists =
    "*START_LIST MFG_A\nA1,A2\n*END\n"
    "*START_NC_COMMAND NC_C\n*START_LIST MFG_NESTED\nN1\n*END\nC1\n*END\n"
    "*START_LIST MY_B\nB1\n*END\n"
    "X*START_LISTS MFG_C\nC1\n*END\n";

constexpr std::string_view kFormats =
    "*START_FORMAT MFG_A\n%1.1f\n*END\n"
    "*START_FORMAT MY_B\n%2.2f\n*END\n"
    "X*START_FORMATS MFG_C\n%3.3f\n*END\n";

TEST(TableLists, EveryKeywordCountsAlsoANestedOne) {
  const TableFile file(kLists);
  KEPMfgPPTableTxt reader(file.path());
  int count = -1;
  EXPECT_TRUE(reader.GetNumberOfMultiListParameter(count));
  EXPECT_EQ(count, 4);
}

TEST(TableLists, NameIsFoundByIndex) {
  EXPECT_EQ(nameOfList(kLists, 1), "MFG_A");
  EXPECT_EQ(nameOfList(kLists, 2), "MFG_NESTED");
  EXPECT_EQ(nameOfList(kLists, 4), "MFG_C");
}

TEST(TableLists, NameWithoutItsPrefixGivesFalse) { EXPECT_EQ(nameOfList(kLists, 3), "(none)"); }

TEST(TableLists, IndexOutsideTheTableGivesFalse) {
  for (const int index : {-2147483647 - 1, -1, 0, 5}) {
    EXPECT_EQ(nameOfList(kLists, index), "(none)") << index;
    const TableFile file(kLists);
    KEPMfgPPTableTxt reader(file.path());
    KEPListValKEPString values = listOf({"cleared"});
    EXPECT_FALSE(reader.GetValuesOfMultiListParameter(index, values));
    EXPECT_EQ(values.Size(), 0);
  }
}

TEST(TableLists, NameIsTheVeryNextToken) {
  EXPECT_EQ(nameOfList("*START_LIST /X MFG_A *END", 1), "(none)");
  EXPECT_EQ(nameOfList("*START_LIST *START_LIST MFG_A *END", 1), "(none)");
  EXPECT_EQ(nameOfList("*START_LIST *START_LIST MFG_A *END", 2), "MFG_A");
  EXPECT_EQ(nameOfList("/*START_LIST MFG_A *END", 1), "(none)");
  EXPECT_EQ(nameOfList("*START_LIST", 1), "(none)");
}

TEST(TableLists, ValuesAreCutAtCommasAndBlanks) {
  EXPECT_EQ(valuesOf(""), Texts{});
  EXPECT_EQ(valuesOf("MMPM,MMPR"), (Texts{"MMPM", "MMPR"}));
  EXPECT_EQ(valuesOf("MMPM,,MMPR"), (Texts{"MMPM", "MMPR"}));
  EXPECT_EQ(valuesOf(",MMPM MMPR, , ,IPM,"), (Texts{"MMPM", "MMPR", "IPM"}));
  EXPECT_EQ(valuesOf("*ENDX,X*END"), (Texts{"*ENDX", "X*END"}));
}

TEST(TableLists, SlashValueIsPassedOverOnlyBehindATokenWithoutComma) {
  EXPECT_EQ(valuesOf("/A B"), Texts{"B"});
  EXPECT_EQ(valuesOf("/A,B /C D"), Texts{"D"});
  EXPECT_EQ(valuesOf("A /B C"), (Texts{"A", "C"}));
  EXPECT_EQ(valuesOf("A,B /C D"), (Texts{"A", "B", "/C", "D"}));
  EXPECT_EQ(valuesOf("A,B /C /D"), (Texts{"A", "B", "/C"}));
  EXPECT_EQ(valuesOf("A,B /C,D /E F /G"), (Texts{"A", "B", "/C", "D", "/E", "F"}));
}

TEST(TableLists, TokenThatEndsInACommaKeepsASlashBehindIt) {
  EXPECT_EQ(valuesOf("A, /B /C"), (Texts{"A", "/B"}));
  EXPECT_EQ(valuesOf(", /B /C"), Texts{"/B"});
}

TEST(TableLists, SlashTokenShorterThanThePieceOffsetIsKept) {
  EXPECT_EQ(valuesOf("ABCDEFGH,I / /C"), (Texts{"ABCDEFGH", "I", "/"}));
}

TEST(TableLists, EndOfFileGivesFalseWithTheValuesFound) {
  const TableFile file("*START_LIST MFG_A\nA,B\nC\n");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString values = listOf({"cleared"});
  EXPECT_FALSE(reader.GetValuesOfMultiListParameter(1, values));
  EXPECT_EQ(texts(values), (Texts{"A", "B", "C"}));
}

TEST(TableLists, StreamStandsBehindNameAndEnd) {
  const TableFile file("*START_LIST MFG_A A1 *END NEXT");
  KEPMfgPPTableTxt reader(file.path());
  KEPString name;
  KEPListValKEPString values;
  EXPECT_TRUE(reader.GetNameOfMultiListParameter(1, name));
  EXPECT_EQ(KEPMfgPPTableTxtTest(reader).nextToken(), "A1");
  EXPECT_TRUE(reader.GetValuesOfMultiListParameter(1, values));
  EXPECT_EQ(KEPMfgPPTableTxtTest(reader).nextToken(), "NEXT");
}

TEST(TableFormats, EveryKeywordCounts) {
  const TableFile file(kFormats);
  KEPMfgPPTableTxt reader(file.path());
  int count = -1;
  EXPECT_TRUE(reader.GetNumberOfFormatParameter(count));
  EXPECT_EQ(count, 3);
}

TEST(TableFormats, NameIsFoundByIndex) {
  EXPECT_EQ(nameOfFormat(kFormats, 1), "MFG_A");
  EXPECT_EQ(nameOfFormat(kFormats, 2), "(none)");
  EXPECT_EQ(nameOfFormat(kFormats, 3), "MFG_C");
  EXPECT_EQ(nameOfFormat(kFormats, 0), "(none)");
  EXPECT_EQ(nameOfFormat(kFormats, 4), "(none)");
}

TEST(TableFormats, ValueIsTheLastTokenThatDoesNotBeginWithASlash) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"%11.5f", "%11.5f"}, {"%1.1f %2.2f", "%2.2f"}, {"%1.1f /%2.2f", "%1.1f"}, {"A,B", "A,B"},
      {"", "untouched"},    {"/%1.1f", "untouched"},  {"%1.1f *ENDX", "*ENDX"}};
  for (const auto& [body, expected] : cases) {
    const TableFile file("*START_FORMAT MFG_A\n" + body + "\n*END\n");
    KEPMfgPPTableTxt reader(file.path());
    KEPString value = "untouched";
    EXPECT_TRUE(reader.GetValueOfFormatParameter(1, value)) << body;
    EXPECT_EQ(value, KEPString(expected)) << body;
  }
}

TEST(TableFormats, AbsentFormatLeavesTheValueAlone) {
  const TableFile file(kFormats);
  KEPMfgPPTableTxt reader(file.path());
  KEPString value = "untouched";
  for (const int index : {0, 2, 4}) EXPECT_FALSE(reader.GetValueOfFormatParameter(index, value));
  EXPECT_EQ(value, KEPString("untouched"));
}

TEST(TableFormats, EndOfFileGivesFalseWithTheLastToken) {
  const TableFile file("*START_FORMAT MFG_A %1.1f LAST");
  KEPMfgPPTableTxt reader(file.path());
  KEPString value;
  EXPECT_FALSE(reader.GetValueOfFormatParameter(1, value));
  EXPECT_EQ(value, KEPString("LAST"));
}

TEST(TableFormats, StreamStandsBehindNameAndEnd) {
  const TableFile file("*START_FORMAT MFG_A %1.1f *END NEXT");
  KEPMfgPPTableTxt reader(file.path());
  KEPString text;
  EXPECT_TRUE(reader.GetNameOfFormatParameter(1, text));
  EXPECT_EQ(KEPMfgPPTableTxtTest(reader).nextToken(), "%1.1f");
  EXPECT_TRUE(reader.GetValueOfFormatParameter(1, text));
  EXPECT_EQ(KEPMfgPPTableTxtTest(reader).nextToken(), "NEXT");
}

// The free syntaxes of a table and what is left in the list after false.
std::pair<bool, Texts> syntaxesOf(std::string_view table) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes = listOf({"cleared"});
  const bool result = reader.GetListOfSyntaxes(syntaxes);
  return {result, texts(syntaxes)};
}

using Answer = std::pair<bool, Texts>;

TEST(TableSyntaxes, EveryTokenOfTheFirstSectionIsOne) {
  EXPECT_EQ(syntaxesOf("*START_SYNTAXES\nRAPID GOTO/%MFG_X,%MFG_Y\nPPRINT TEXT\n*END\n"
                       "*START_SYNTAXES SECOND *END"),
            (Answer{true, {"RAPID", "GOTO/%MFG_X,%MFG_Y", "PPRINT", "TEXT"}}));
}

TEST(TableSyntaxes, SlashTokensArePassedOverAndOnlyAWholeEndEnds) {
  EXPECT_EQ(syntaxesOf("/*START_SYNTAXES A *START_SYNTAXES /B *ENDX X*END /*END C *END D"),
            (Answer{true, {"*ENDX", "X*END", "C"}}));
}

TEST(TableSyntaxes, AbsentSectionGivesAnEmptyList) {
  EXPECT_EQ(syntaxesOf("*START_MINOR_WORDS A *END"), (Answer{true, {}}));
}

TEST(TableSyntaxes, EndOfFileGivesFalse) {
  EXPECT_EQ(syntaxesOf("*START_SYNTAXES A B"), (Answer{false, {"A", "B"}}));
}

TEST(TableSyntaxes, StreamStandsBehindTheEnd) {
  const TableFile file("*START_SYNTAXES A *END NEXT");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader.GetListOfSyntaxes(syntaxes));
  EXPECT_EQ(KEPMfgPPTableTxtTest(reader).nextToken(), "NEXT");
}

}  // namespace
