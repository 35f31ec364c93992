#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <type_traits>

#include "System/KEPError.h"
#include "tests/table/TableAnswers.h"

namespace {

std::string withCarriageReturns(std::string_view text) {
  std::string result;
  for (const char character : text) {
    if (character == '\n') result += '\r';
    result += character;
  }
  return result;
}

TEST(TableReader, DestructorIsVirtual) {
  EXPECT_TRUE(std::has_virtual_destructor_v<KEPMfgPPTableTxt>);
}

TEST(TableReader, WholeTableAnswersEveryQuery) {
  const TableFile file(kWholeTable);
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(reader.CheckFileSyntax(), S_OK);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
}

TEST(TableReader, AbsentFileGivesFalse) {
  KEPMfgPPTableTxt reader("/nowhere/table.txt");
  EXPECT_EQ(answersOf(reader), kUnopenedAnswers);
  EXPECT_FALSE(KEPMfgPPTableTxtTest(reader).isOpen());
}

TEST(TableReader, DirectoryCountsAsNotOpened) {
  const int before = openFiles();
  KEPMfgPPTableTxt reader("/tmp");
  EXPECT_EQ(answersOf(reader), kUnopenedAnswers);
  EXPECT_EQ(reader.CheckFileSyntax(), E_FAIL);
  EXPECT_EQ(openFiles(), before);
}

TEST(TableReader, EndlessDeviceCountsAsNotOpened) {
  KEPMfgPPTableTxt reader("/dev/zero");
  EXPECT_EQ(answersOf(reader), kUnopenedAnswers);
  EXPECT_EQ(reader.CheckFileSyntax(), E_FAIL);
}

TEST(TableReader, EmptyDeviceIsAnEmptyTable) {
  KEPMfgPPTableTxt reader("/dev/null");
  EXPECT_EQ(answersOf(reader), kEmptyAnswers);
}

TEST(TableReader, EmptyFileIsAnEmptyTable) {
  const TableFile file("");
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kEmptyAnswers);
}

TEST(TableReader, CarriageReturnsChangeNothing) {
  const TableFile file(withCarriageReturns(kWholeTable));
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
}

TEST(TableReader, EveryWhiteSpaceSeparatesTokens) {
  const TableFile file("*START_SYNTAXES\tA\vB\fC\rD  E\n\nF *END");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader.GetListOfSyntaxes(syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"A", "B", "C", "D", "E", "F"}));
}

TEST(TableReader, BytesThatSomeLocalesCallBlankAreKept) {
  const TableFile file(
      "*START_SYNTAXES A\xA0"
      "B C\x85"
      "D \xC2\xA0 *END");
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"C", "C.UTF-8", "de_DE.UTF-8", "fr_FR.ISO-8859-1"}) {
    std::setlocale(LC_ALL, name);
    KEPMfgPPTableTxt reader(file.path());
    KEPListValKEPString syntaxes;
    EXPECT_TRUE(reader.GetListOfSyntaxes(syntaxes)) << name;
    EXPECT_EQ(texts(syntaxes), (Texts{"A\xA0"
                                      "B",
                                      "C\x85"
                                      "D",
                                      "\xC2\xA0"}))
        << name;
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST(TableReader, ByteOrderMarkIsPartOfTheFirstToken) {
  const TableFile file("\xEF\xBB\xBF*START_SYNTAXES\nRAPID\n*END\n");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader.GetListOfSyntaxes(syntaxes));
  EXPECT_EQ(texts(syntaxes), Texts{"RAPID"});
}

TEST(TableReader, NulBytesArePartOfTheirToken) {
  using namespace std::string_literals;
  const TableFile file("*START_SYNTAXES\0 A\0B \0 *END\0 C *END"s);
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader.GetListOfSyntaxes(syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"A\0B"s, "\0"s, "*END\0"s, "C"}));
}

TEST(TableReader, TokenOf1023CharactersIsRead) {
  for (const std::size_t size : {1022U, 1023U}) {
    const std::string token(size, 'T');
    const TableFile file("*START_SYNTAXES " + token + " *END");
    KEPMfgPPTableTxt reader(file.path());
    KEPListValKEPString syntaxes;
    EXPECT_TRUE(reader.GetListOfSyntaxes(syntaxes));
    EXPECT_EQ(texts(syntaxes), Texts{token});
  }
}

TEST(TableReader, LongerTokenMakesEveryQueryThatMeetsItFalse) {
  const TableFile file(std::string(1024, 'T') + "\n" + std::string(kWholeTable));
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kUnopenedAnswers);
}

TEST(TableReader, LongerTokenThatIsPassedOverMakesTheQueryFalse) {
  const TableFile file("/" + std::string(1023, 'T') + " *START_SYNTAXES A *END");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_FALSE(reader.GetListOfSyntaxes(syntaxes));
}

TEST(TableReader, LongerTokenBehindTheAnswerDoesNotMatter) {
  const TableFile file("*START_NC_COMMAND NC_A A1 *END " + std::string(1024, 'T'));
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader.GetSyntaxOfCommand("NC_A", syntaxes));
  EXPECT_EQ(texts(syntaxes), Texts{"A1"});
  int count = 7;
  EXPECT_FALSE(reader.GetNumberOfCommand(count));
  EXPECT_EQ(count, 1);
  EXPECT_FALSE(reader.GetRangeOfCommand("NC_B", count));
  EXPECT_EQ(count, 1);
}

TEST(TableReader, LongerTokenInPlaceOfANameMakesTheQueryFalse) {
  const TableFile file("*START_NC_COMMAND NC_" + std::string(1021, 'T') +
                       " *START_NC_COMMAND NC_A A1 *END");
  KEPMfgPPTableTxt reader(file.path());
  int range = 7;
  EXPECT_FALSE(reader.GetRangeOfCommand("NC_A", range));
  EXPECT_EQ(range, 0);
}

TEST(TableReader, LongerTokenOfAWordSectionMakesTheWordsFalse) {
  const TableFile file("*START_MINOR_WORDS NOTE,1 *END " + std::string(1024, 'T'));
  KEPMfgPPTableTxt reader(file.path());
  KEPRawCollint kinds;
  KEPListValKEPString words;
  EXPECT_FALSE(reader.GetListOfAptWord(kinds, words));
  EXPECT_EQ(words.Size(), 0);
}

TEST(TableReader, ChangedFileShowsAtTheNextQuery) {
  const TableFile file(kWholeTable);
  KEPMfgPPTableTxt reader(file.path());
  int count = 0;
  EXPECT_TRUE(reader.GetNumberOfCommand(count));
  EXPECT_EQ(count, 3);
  file.write("*START_NC_COMMAND NC_A *END");
  EXPECT_TRUE(reader.GetNumberOfCommand(count));
  EXPECT_EQ(count, 1);
}

TEST(TableReader, RemovedFileGivesFalseAndReturnedFileRecovers) {
  const TableFile file(kWholeTable);
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  file.remove();
  EXPECT_EQ(answersOf(reader), kUnopenedAnswers);
  EXPECT_TRUE(KEPMfgPPTableTxtTest(reader).isOpen());
  EXPECT_FALSE(KEPMfgPPTableTxtTest(reader).findString("*END"));
  file.write(kWholeTable);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
}

TEST(TableReader, AbsentFileThatAppearsIsRead) {
  const TableFile file("");
  file.remove();
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kUnopenedAnswers);
  file.write(kWholeTable);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
}

TEST(TableReader, PrivateOperationsOfAClosedReaderMeetEndOfFile) {
  const TableFile file(kWholeTable);
  KEPMfgPPTableTxt reader(file.path());
  KEPMfgPPTableTxtTest inside(reader);
  KEPListValKEPString syntaxes = listOf({"kept"});
  int count = 7;
  EXPECT_FALSE(inside.findString("*END"));
  EXPECT_FALSE(inside.syntaxFromPosition("NC_A", syntaxes));
  EXPECT_FALSE(inside.numberOfSequence(count));
  EXPECT_FALSE(inside.syntaxOfSequence("NC_A", 1, syntaxes));
  EXPECT_EQ(count, 7);
  EXPECT_EQ(texts(syntaxes), Texts{"kept"});
  EXPECT_FALSE(inside.isOpen());
}

TEST(TableReader, FindStringStandsBehindTheFirstTokenThatContainsIt) {
  const TableFile file("*START_NC_COMMAND NC_A /MFG_B XMFG_BX C MFG_B D *END");
  KEPMfgPPTableTxt reader(file.path());
  KEPMfgPPTableTxtTest inside(reader);
  KEPString name;
  ASSERT_TRUE(reader.GetNameOfCommand(1, name));
  EXPECT_TRUE(inside.findString("MFG_B"));
  EXPECT_EQ(inside.nextToken(), "C");
  EXPECT_TRUE(inside.findString("MFG_B"));
  EXPECT_EQ(inside.nextToken(), "D");
  EXPECT_FALSE(inside.findString("MFG_B"));
}

}  // namespace
