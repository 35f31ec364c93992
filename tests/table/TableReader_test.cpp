#include <gtest/gtest.h>

#include <clocale>
#include <memory>
#include <string>
#include <type_traits>

#include "System/KEPError.h"
#include "tests/table/TableFiles.h"

namespace {

constexpr std::string_view kTable =
    "*START_NC_COMMAND NC_A\nA1\n*END\n"
    "*START_NC_INSTRUCTION NC_B\nB1\n*END\n"
    "*START_NC_INSTRUCTION NC_C\nC1\n*END\n"
    "*START_LIST MFG_UNITS\nMMPM\n*END\n"
    "*START_FORMAT MFG_X\n%5.1f\n*END\n"
    "*START_SYNTAXES\nRAPID\n*END\n"
    "*START_MAJOR_WORDS_WITHOUT_PARAMETERS\nFINI,1\n*END\n"
    "*START_MINOR_WORDS\nNOTE,181\n*END\n";

// What every public query answers, in one line each, so that two situations can be compared.
Texts answersOf(KEPMfgPPTableTxt& reader) {
  int number = 7;
  KEPString text = "kept";
  KEPListValKEPString list = listOf({"kept"});
  KEPRawCollint integers;
  integers.Append(7);
  const auto said = [&](const char* query, bool result) {
    std::string line = std::string(query) + (result ? " true " : " false ");
    line += std::to_string(number) + " " + text.CastToCharPtr();
    for (const KEPString& entry : list) line.append(" ").append(entry.View());
    for (const int entry : integers) line += " " + std::to_string(entry);
    number = 7;
    text = "kept";
    list = listOf({"kept"});
    integers.RemoveAll();
    integers.Append(7);
    return line;
  };
  Texts answers;
  answers.push_back(said("commands", reader.GetNumberOfCommand(number)));
  answers.push_back(said("name", reader.GetNameOfCommand(1, text)));
  answers.push_back(said("range", reader.GetRangeOfCommand("NC_C", number)));
  answers.push_back(said("syntax", reader.GetSyntaxOfCommand("NC_B", list)));
  answers.push_back(said("syntax", reader.GetSyntaxOfCommand(1, list)));
  answers.push_back(said("sequences", reader.GetNumberOfSequenceForCommand("NC_B", number)));
  answers.push_back(said("sequences", reader.GetNumberOfSequenceForCommand(1, number)));
  answers.push_back(said("sequence", reader.GetSyntaxOfSequenceForCommand("NC_B", 1, list)));
  answers.push_back(said("sequence", reader.GetSyntaxOfSequenceForCommand(1, 1, list)));
  answers.push_back(said("lists", reader.GetNumberOfMultiListParameter(number)));
  answers.push_back(said("list", reader.GetNameOfMultiListParameter(1, text)));
  answers.push_back(said("values", reader.GetValuesOfMultiListParameter(1, list)));
  answers.push_back(said("formats", reader.GetNumberOfFormatParameter(number)));
  answers.push_back(said("format", reader.GetNameOfFormatParameter(1, text)));
  answers.push_back(said("value", reader.GetValueOfFormatParameter(1, text)));
  answers.push_back(said("syntaxes", reader.GetListOfSyntaxes(list)));
  answers.push_back(said("words", reader.GetListOfAptWord(integers, list)));
  answers.push_back(said("codes", reader.GetListOfNcCode(integers)));
  return answers;
}

const Texts kWholeAnswers = {"commands true 3 kept kept 7",
                             "name true 7 NC_A kept 7",
                             "range true 3 kept kept 7",
                             "syntax true 7 kept kept B1 7",
                             "syntax true 7 kept kept A1 7",
                             "sequences true 0 kept kept 7",
                             "sequences true 0 kept kept 7",
                             "sequence false 7 kept kept 7",
                             "sequence false 7 kept kept 7",
                             "lists true 1 kept kept 7",
                             "list true 7 MFG_UNITS kept 7",
                             "values true 7 kept MMPM 7",
                             "formats true 1 kept kept 7",
                             "format true 7 MFG_X kept 7",
                             "value true 7 %5.1f kept 7",
                             "syntaxes true 7 kept RAPID 7",
                             "words true 7 kept kept FINI NOTE 7 1 4",
                             "codes true 7 kept kept 7 1 181"};

const Texts kUnopenedAnswers = {"commands false 0 kept kept 7",  "name false 7 kept kept 7",
                                "range false 0 kept kept 7",     "syntax false 7 kept kept 7",
                                "syntax false 7 kept kept 7",    "sequences false 7 kept kept 7",
                                "sequences false 7 kept kept 7", "sequence false 7 kept kept 7",
                                "sequence false 7 kept kept 7",  "lists false 0 kept kept 7",
                                "list false 7 kept kept 7",      "values false 7 kept 7",
                                "formats false 0 kept kept 7",   "format false 7 kept kept 7",
                                "value false 7 kept kept 7",     "syntaxes false 7 kept 7",
                                "words false 7 kept kept 7",     "codes false 7 kept kept 7"};

const Texts kEmptyAnswers = {"commands true 0 kept kept 7",   "name false 7 kept kept 7",
                             "range false 0 kept kept 7",     "syntax false 7 kept kept 7",
                             "syntax false 7 kept kept 7",    "sequences false 7 kept kept 7",
                             "sequences false 7 kept kept 7", "sequence false 7 kept kept 7",
                             "sequence false 7 kept kept 7",  "lists true 0 kept kept 7",
                             "list false 7 kept kept 7",      "values false 7 kept 7",
                             "formats true 0 kept kept 7",    "format false 7 kept kept 7",
                             "value false 7 kept kept 7",     "syntaxes true 7 kept 7",
                             "words true 7 kept kept 7",      "codes true 7 kept kept 7"};

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
  const TableFile file(kTable);
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
  const TableFile file(withCarriageReturns(kTable));
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
  const TableFile file(std::string(1024, 'T') + "\n" + std::string(kTable));
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
  const TableFile file(kTable);
  KEPMfgPPTableTxt reader(file.path());
  int count = 0;
  EXPECT_TRUE(reader.GetNumberOfCommand(count));
  EXPECT_EQ(count, 3);
  file.write("*START_NC_COMMAND NC_A *END");
  EXPECT_TRUE(reader.GetNumberOfCommand(count));
  EXPECT_EQ(count, 1);
}

TEST(TableReader, RemovedFileGivesFalseAndReturnedFileRecovers) {
  const TableFile file(kTable);
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  file.remove();
  EXPECT_EQ(answersOf(reader), kUnopenedAnswers);
  EXPECT_TRUE(KEPMfgPPTableTxtTest(reader).isOpen());
  EXPECT_FALSE(KEPMfgPPTableTxtTest(reader).findString("*END"));
  file.write(kTable);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
}

TEST(TableReader, AbsentFileThatAppearsIsRead) {
  const TableFile file("");
  file.remove();
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kUnopenedAnswers);
  file.write(kTable);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
}

TEST(TableReader, PrivateOperationsOfAClosedReaderMeetEndOfFile) {
  const TableFile file(kTable);
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

TEST(TableReader, DestructorClosesTheStream) {
  const TableFile file(kTable);
  const int before = openFiles();
  {
    KEPMfgPPTableTxt reader(file.path());
    EXPECT_EQ(openFiles(), before);
    answersOf(reader);
    EXPECT_EQ(openFiles(), before + 1);
  }
  EXPECT_EQ(openFiles(), before);
}

TEST(TableReader, CopySharesStreamAndPosition) {
  const TableFile file(kTable);
  KEPMfgPPTableTxt reader(file.path());
  KEPString name;
  ASSERT_TRUE(reader.GetNameOfCommand(1, name));
  KEPMfgPPTableTxt copy(reader);
  EXPECT_TRUE(KEPMfgPPTableTxtTest(copy).sharesStreamWith(reader));
  EXPECT_TRUE(KEPMfgPPTableTxtTest(copy).isOpen());
  EXPECT_EQ(KEPMfgPPTableTxtTest(copy).nextToken(), "A1");
  EXPECT_EQ(KEPMfgPPTableTxtTest(reader).nextToken(), "*END");
  EXPECT_EQ(answersOf(copy), kWholeAnswers);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  EXPECT_TRUE(KEPMfgPPTableTxtTest(copy).sharesStreamWith(reader));
}

TEST(TableReader, SharedStreamIsClosedOnceInBothOrders) {
  const TableFile file(kTable);
  const int before = openFiles();
  for (const bool originalFirst : {true, false}) {
    auto original = std::make_unique<KEPMfgPPTableTxt>(file.path());
    int count = 0;
    ASSERT_TRUE(original->GetNumberOfCommand(count));
    auto copy = std::make_unique<KEPMfgPPTableTxt>(*original);
    auto& first = originalFirst ? original : copy;
    auto& second = originalFirst ? copy : original;
    EXPECT_EQ(openFiles(), before + 1);
    first.reset();
    EXPECT_EQ(openFiles(), before + 1);
    EXPECT_EQ(answersOf(*second), kWholeAnswers);
    second.reset();
    EXPECT_EQ(openFiles(), before);
  }
}

TEST(TableReader, AssignmentSharesTheStreamAndLetsGoOfItsOwn) {
  const TableFile file(kTable);
  const TableFile other("*START_NC_COMMAND NC_OTHER *END");
  const int before = openFiles();
  for (const bool originalFirst : {true, false}) {
    auto original = std::make_unique<KEPMfgPPTableTxt>(file.path());
    auto assigned = std::make_unique<KEPMfgPPTableTxt>(other.path());
    int count = 0;
    ASSERT_TRUE(original->GetNumberOfCommand(count));
    ASSERT_TRUE(assigned->GetNumberOfCommand(count));
    EXPECT_EQ(openFiles(), before + 2);
    *assigned = *original;
    EXPECT_EQ(openFiles(), before + 1);
    EXPECT_EQ(answersOf(*assigned), kWholeAnswers);
    auto& first = originalFirst ? original : assigned;
    auto& second = originalFirst ? assigned : original;
    first.reset();
    EXPECT_EQ(answersOf(*second), kWholeAnswers);
    second.reset();
    EXPECT_EQ(openFiles(), before);
  }
}

TEST(TableReader, SelfAssignmentChangesNothing) {
  const TableFile file(kTable);
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  const KEPMfgPPTableTxt& same = reader;
  reader = same;
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
}

TEST(TableReader, CopyOfAClosedReaderSharesNothing) {
  const TableFile file(kTable);
  const int before = openFiles();
  KEPMfgPPTableTxt reader(file.path());
  KEPMfgPPTableTxt copy(reader);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  EXPECT_FALSE(KEPMfgPPTableTxtTest(copy).isOpen());
  EXPECT_EQ(answersOf(copy), kWholeAnswers);
  EXPECT_FALSE(KEPMfgPPTableTxtTest(copy).sharesStreamWith(reader));
  EXPECT_EQ(openFiles(), before + 2);
}

TEST(TableReader, CopyOfAReaderThatFailedToOpenSharesNothing) {
  const TableFile file("");
  file.remove();
  KEPMfgPPTableTxt reader(file.path());
  int count = 0;
  EXPECT_FALSE(reader.GetNumberOfCommand(count));
  KEPMfgPPTableTxt copy(reader);
  file.write(kTable);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  EXPECT_EQ(answersOf(copy), kWholeAnswers);
  EXPECT_FALSE(KEPMfgPPTableTxtTest(copy).sharesStreamWith(reader));
}

TEST(TableReader, CopyOfAReaderWhoseReopenFailedRecoversWithIt) {
  const TableFile file(kTable);
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  file.remove();
  EXPECT_EQ(answersOf(reader), kUnopenedAnswers);
  KEPMfgPPTableTxt copy(reader);
  file.write(kTable);
  EXPECT_EQ(answersOf(copy), kWholeAnswers);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
}

}  // namespace
