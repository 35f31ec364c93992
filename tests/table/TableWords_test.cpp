#include <gtest/gtest.h>

#include <string>

#include "tests/table/TableFiles.h"

namespace {

using Numbers = std::vector<int>;

// The words, their kinds and the codes of a table.
struct Vocabulary {
  Texts words;
  Numbers kinds;
  Numbers codes;
  friend bool operator==(const Vocabulary&, const Vocabulary&) = default;
};

Vocabulary vocabularyOf(std::string_view table) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString words;
  KEPRawCollint kinds;
  KEPRawCollint codes;
  EXPECT_TRUE(reader.GetListOfAptWord(kinds, words));
  EXPECT_TRUE(reader.GetListOfNcCode(codes));
  return {texts(words), numbers(kinds), numbers(codes)};
}

Numbers codesOf(const std::string& body) {
  return vocabularyOf("*START_MINOR_WORDS\n" + body + "\n*END\n").codes;
}

constexpr std::string_view kWordTable =
    "*START_MINOR_WORDS\nNOTE,181\n*END\n"
    "*START_MAJOR_WORDS_WITH_PARAMETERS\nTPRINT,1075\nGOTO,2\n*END\n"
    "*START_MAJOR_WORDS_WITH_TEXT\nPARTNO,1045\n*END\n"
    "*START_MAJOR_WORDS_WITHOUT_PARAMETERS\nFINI,1\n*END\n"
    "*START_MINOR_WORDS\nSECOND,9\n*END\n";

TEST(TableWords, KindsComeInOrderWhateverTheOrderOfTheSections) {
  EXPECT_EQ(vocabularyOf(kWordTable), (Vocabulary{{"FINI", "PARTNO", "TPRINT", "GOTO", "NOTE"},
                                                  {1, 2, 3, 3, 4},
                                                  {1, 1045, 1075, 2, 181}}));
}

TEST(TableWords, CommasAndBlanksSeparateAlike) {
  const Vocabulary expected{{"TPRINT"}, {3}, {1075}};
  for (const char* body : {"TPRINT,1075", "TPRINT, 1075", "TPRINT 1075", "TPRINT ,1075",
                           ",TPRINT,,1075,", "TPRINT\n1075", "/X TPRINT /Y 1075"}) {
    const std::string table =
        "*START_MAJOR_WORDS_WITH_PARAMETERS\n" + std::string(body) + "\n*END\n";
    EXPECT_EQ(vocabularyOf(table), expected) << body;
  }
}

TEST(TableWords, OneLineMayHoldSeveralPairs) {
  EXPECT_EQ(vocabularyOf("*START_MINOR_WORDS ON,71,OFF,72 CLW 60 *END"),
            (Vocabulary{{"ON", "OFF", "CLW"}, {4, 4, 4}, {71, 72, 60}}));
}

TEST(TableWords, MissingCodeShiftsTheLaterPairsOverAllSections) {
  EXPECT_EQ(vocabularyOf("*START_MAJOR_WORDS_WITHOUT_PARAMETERS FINI *END "
                         "*START_MINOR_WORDS ON,71,OFF *END"),
            (Vocabulary{{"FINI", "71"}, {1, 4}, {}}));
}

TEST(TableWords, LastWordMayLackItsCode) {
  EXPECT_EQ(vocabularyOf("*START_MINOR_WORDS ON,71,OFF *END"),
            (Vocabulary{{"ON", "OFF"}, {4, 4}, {71}}));
}

TEST(TableWords, TableWithoutWordSectionsHasNoWords) {
  EXPECT_EQ(vocabularyOf("*START_SYNTAXES A *END"), (Vocabulary{}));
}

TEST(TableWords, SectionKeywordIsFoundInsideAToken) {
  EXPECT_EQ(vocabularyOf("X*START_MINOR_WORDSX ON,71 *ENDX 5 /*END *END"),
            (Vocabulary{{"ON", "*ENDX"}, {4, 4}, {71, 5}}));
  EXPECT_EQ(vocabularyOf("/*START_MINOR_WORDS ON,71 *END"), (Vocabulary{}));
}

TEST(TableWords, CodeReadsAsFarAsItIsAnInteger) {
  EXPECT_EQ(codesOf("A,12X B,+3 C,-4 D,007 E,0x10 F,1.9"), (Numbers{12, 3, -4, 7, 0, 1}));
}

TEST(TableWords, CodeThatIsNoIntegerIsLeftOut) {
  EXPECT_EQ(codesOf("A,X B,- C,+ D,+-1 E,5"), Numbers{5});
}

TEST(TableWords, CodeBeyond32BitsBecomesTheNearest) {
  EXPECT_EQ(codesOf("A,2147483647 B,2147483648 C,-2147483648 D,-2147483649"),
            (Numbers{2147483647, 2147483647, -2147483647 - 1, -2147483647 - 1}));
  EXPECT_EQ(codesOf("A,4294967297 B,99999999999999999999999"), (Numbers{2147483647, 2147483647}));
}

TEST(TableWords, ListsAreAppendedTo) {
  const TableFile file("*START_MINOR_WORDS ON,71 *END");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString words = listOf({"BEFORE"});
  KEPRawCollint kinds;
  kinds.Append(7);
  KEPRawCollint codes;
  codes.Append(8);
  EXPECT_TRUE(reader.GetListOfAptWord(kinds, words));
  EXPECT_TRUE(reader.GetListOfNcCode(codes));
  EXPECT_EQ(texts(words), (Texts{"BEFORE", "ON"}));
  EXPECT_EQ(numbers(kinds), (Numbers{7, 4}));
  EXPECT_EQ(numbers(codes), (Numbers{8, 71}));
}

TEST(TableWords, SectionWithoutEndGivesFalseAndLeavesTheListsAlone) {
  const TableFile file("*START_MAJOR_WORDS_WITH_TEXT PARTNO,1045 *END *START_MINOR_WORDS ON,71");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString words = listOf({"BEFORE"});
  KEPRawCollint numbersBefore;
  EXPECT_FALSE(reader.GetListOfAptWord(numbersBefore, words));
  EXPECT_FALSE(reader.GetListOfNcCode(numbersBefore));
  EXPECT_EQ(texts(words), Texts{"BEFORE"});
  EXPECT_EQ(numbersBefore.Size(), 0);
}

TEST(TableWords, PiecesAreClearedFirstAndKeptAfterFalse) {
  const TableFile file("*START_MAJOR_WORDS_WITH_TEXT A,1 *END *START_MINOR_WORDS B,,2");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString pieces = listOf({"cleared"});
  KEPRawCollint kinds;
  kinds.Append(9);
  EXPECT_FALSE(KEPMfgPPTableTxtTest(reader).listOfPPValues(kinds, pieces));
  EXPECT_EQ(texts(pieces), (Texts{"A", "1", "B", "2"}));
  EXPECT_EQ(numbers(kinds), (Numbers{2, 2, 4, 4}));
}

TEST(TableWords, PiecesOfAnAbsentFileAreClearedToo) {
  KEPMfgPPTableTxt reader("/nowhere");
  KEPListValKEPString pieces = listOf({"cleared"});
  KEPRawCollint kinds;
  kinds.Append(9);
  EXPECT_FALSE(KEPMfgPPTableTxtTest(reader).listOfPPValues(kinds, pieces));
  EXPECT_EQ(pieces.Size(), 0);
  EXPECT_EQ(kinds.Size(), 0);
}

}  // namespace
