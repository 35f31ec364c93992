#include "src/environment/WordList.h"

#include <gtest/gtest.h>

#include "tests/environment/Programs.h"
#include "tests/support/Folders.h"
#include "tests/table/TableFiles.h"

namespace {

using Numbers = std::vector<int>;
using Utilities = KEPMfgPPWordUtilities;

constexpr std::string_view kTable =
    "*START_MAJOR_WORDS_WITHOUT_PARAMETERS\nFINI,1\n*END\n"
    "*START_MAJOR_WORDS_WITH_TEXT\nPARTNO,1045\n*END\n"
    "*START_MAJOR_WORDS_WITH_PARAMETERS\nGOTO,2 GODLTA,2\n*END\n"
    "*START_MINOR_WORDS\nON,71 ON,72\n*END\n";

std::string entry(HRESULT status, int kind, int code) {
  return (status == S_OK ? "S_OK " : "E_FAIL ") + std::to_string(kind) + ' ' + std::to_string(code);
}

std::string codeOf(const char* word) {
  int kind = 7;
  int code = 7;
  const HRESULT status = Utilities::GetClfileCode(word, kind, code);
  return entry(status, kind, code);
}

std::string wordOf(int code) {
  KEPString word = "kept";
  const HRESULT status = Utilities::GetAptWord(code, word);
  return (status == S_OK ? "S_OK " : "E_FAIL ") + std::string(word.View());
}

KEPUnicodeString pathOf(const TableFile& file) { return {file.path().View()}; }

class WordListCache : public testing::Test {
 protected:
  void SetUp() override { KEPError::KEPCleanLastError(); }
  void TearDown() override {
    Utilities::DeleteListOfPPWords();
    KEPError::KEPCleanLastError();
  }

  static void store(std::string_view table) {
    const TableFile file(table);
    EXPECT_EQ(Utilities::StoreListOfPPWords(pathOf(file)), S_OK);
  }
};

struct Lists {
  KEPListValKEPString words;
  KEPRawCollint kinds;
  KEPRawCollint codes;

  HRESULT read(std::string_view table) {
    const TableFile file(table);
    return Utilities::GetListOfPPWords(pathOf(file), words, kinds, codes);
  }
};

TEST(WordsOfATable, FixedWordsAreAddedAtTheEnd) {
  Lists lists;
  EXPECT_EQ(lists.read(kTable), S_OK);
  EXPECT_EQ(texts(lists.words),
            (Texts{"FINI", "PARTNO", "GOTO", "GODLTA", "ON", "ON", "TPRINT", "NOTE"}));
  EXPECT_EQ(numbers(lists.kinds), (Numbers{1, 2, 3, 3, 4, 4, 3, 4}));
  EXPECT_EQ(numbers(lists.codes), (Numbers{1, 1045, 2, 2, 71, 72, 1075, 181}));
}

TEST(WordsOfATable, EmptyTableGivesTheFixedWords) {
  Lists lists;
  EXPECT_EQ(lists.read(""), S_OK);
  EXPECT_EQ(texts(lists.words), (Texts{"TPRINT", "NOTE"}));
  EXPECT_EQ(numbers(lists.kinds), (Numbers{3, 4}));
  EXPECT_EQ(numbers(lists.codes), (Numbers{1075, 181}));
}

TEST(WordsOfATable, OwnEntriesOfTheFixedWordsAreKept) {
  Lists lists;
  EXPECT_EQ(lists.read("*START_MINOR_WORDS\nNOTE,9 TPRINT,8\n*END\n"), S_OK);
  EXPECT_EQ(texts(lists.words), (Texts{"NOTE", "TPRINT"}));
  EXPECT_EQ(numbers(lists.kinds), (Numbers{4, 4}));
  EXPECT_EQ(numbers(lists.codes), (Numbers{9, 8}));
}

TEST(WordsOfATable, FixedWordsAreMatchedExactly) {
  Lists lists;
  EXPECT_EQ(lists.read("*START_MINOR_WORDS\nnote,9 NOTES,8\n*END\n"), S_OK);
  EXPECT_EQ(texts(lists.words), (Texts{"note", "NOTES", "TPRINT", "NOTE"}));
}

TEST(WordsOfATable, ListsKeepWhatTheyHeldAndTheFixedWordsCountThere) {
  Lists lists;
  lists.words = listOf({"NOTE"});
  lists.kinds.Append(1);
  lists.codes.Append(5);
  EXPECT_EQ(lists.read("*START_MINOR_WORDS\nON,71\n*END\n"), S_OK);
  EXPECT_EQ(texts(lists.words), (Texts{"NOTE", "ON", "TPRINT"}));
  EXPECT_EQ(numbers(lists.kinds), (Numbers{1, 4, 3}));
  EXPECT_EQ(numbers(lists.codes), (Numbers{5, 71, 1075}));
}

TEST(WordsOfATable, CodeThatIsNoNumberLeavesTheCodesShorter) {
  Lists lists;
  EXPECT_EQ(lists.read("*START_MINOR_WORDS\nON,X OFF,72\n*END\n"), S_OK);
  EXPECT_EQ(texts(lists.words), (Texts{"ON", "OFF", "TPRINT", "NOTE"}));
  EXPECT_EQ(numbers(lists.codes), (Numbers{72, 1075, 181}));
}

TEST(WordsOfATable, TableThatCannotBeReadFailsWithoutErrorAndLeaksNothing) {
  KEPError::KEPCleanLastError();
  Lists lists;
  lists.words = listOf({"BEFORE"});
  const int before = openFiles();
  EXPECT_EQ(Utilities::GetListOfPPWords("/absent/table", lists.words, lists.kinds, lists.codes),
            E_FAIL);
  EXPECT_EQ(lists.read("*START_MINOR_WORDS\nON,71\n"), E_FAIL);
  EXPECT_EQ(openFiles(), before);
  EXPECT_EQ(texts(lists.words), Texts{"BEFORE"});
  EXPECT_EQ(lists.kinds.Size(), 0);
  EXPECT_EQ(lists.codes.Size(), 0);
  EXPECT_EQ(lastError(), "");
}

TEST(WordsOfATable, ProgramGivesThoseOfItsTable) {
  const Folders folders;
  folders.file("a/PPTables/mill", "*START_MINOR_WORDS\nON,71\n*END\n");
  folders.search("a");
  Lists lists;
  EXPECT_EQ(Utilities::GetListOfPPWords(programOn("mill"), lists.words, lists.kinds, lists.codes),
            S_OK);
  EXPECT_EQ(texts(lists.words), (Texts{"ON", "TPRINT", "NOTE"}));
}

TEST(WordsOfATable, ProgramWithoutTablePassesItsErrorOn) {
  const Folders folders;
  Lists lists;
  const auto status = [&](const KEPIMfgProgram_var& program) {
    return Utilities::GetListOfPPWords(program, lists.words, lists.kinds, lists.codes);
  };
  EXPECT_EQ(status(programOn(std::nullopt)), E_FAIL);
  EXPECT_EQ(lastError(), "ERR_5010 3 (0)");
  EXPECT_EQ(status(programWithoutResource()), E_FAIL);
  EXPECT_EQ(lastError(), "ERR_5011 3 (0)");
  EXPECT_EQ(status(programOn("mill")), E_FAIL);
  EXPECT_EQ(lastError(), "ERR_5015 3 (0)");
  EXPECT_EQ(lists.words.Size(), 0);
  KEPError::KEPCleanLastError();
}

TEST_F(WordListCache, WithoutStoreBothLookUpsFail) {
  EXPECT_EQ(codeOf("NOTE"), "E_FAIL 7 7");
  EXPECT_EQ(wordOf(181), "E_FAIL kept");
}

TEST_F(WordListCache, WordGivesKindAndCodeAndCodeItsWord) {
  store(kTable);
  EXPECT_EQ(codeOf("FINI"), "S_OK 1 1");
  EXPECT_EQ(codeOf("PARTNO"), "S_OK 2 1045");
  EXPECT_EQ(codeOf("GODLTA"), "S_OK 3 2");
  EXPECT_EQ(codeOf("TPRINT"), "S_OK 3 1075");
  EXPECT_EQ(codeOf("NOTE"), "S_OK 4 181");
  EXPECT_EQ(wordOf(1045), "S_OK PARTNO");
  EXPECT_EQ(wordOf(1075), "S_OK TPRINT");
  EXPECT_EQ(wordOf(181), "S_OK NOTE");
}

TEST_F(WordListCache, FirstEntryWins) {
  store(kTable);
  EXPECT_EQ(codeOf("ON"), "S_OK 4 71");
  EXPECT_EQ(wordOf(72), "S_OK ON");
  EXPECT_EQ(wordOf(2), "S_OK GOTO");
  store("*START_MINOR_WORDS\nMINE,1075\n*END\n");
  EXPECT_EQ(wordOf(1075), "S_OK MINE");
}

TEST_F(WordListCache, WordIsCutAtItsFirstBlank) {
  store("*START_MAJOR_WORDS_WITH_PARAMETERS\nGOTO,2\n*END\n");
  EXPECT_EQ(codeOf("GOTO /1,2"), "S_OK 3 2");
  EXPECT_EQ(codeOf("GOTO "), "S_OK 3 2");
  EXPECT_EQ(codeOf("GOTO A B"), "S_OK 3 2");
  EXPECT_EQ(codeOf("GOTO/1,2"), "E_FAIL 7 7");
  EXPECT_EQ(codeOf("GOTO\t/1,2"), "E_FAIL 7 7");
  EXPECT_EQ(codeOf(" GOTO"), "E_FAIL 7 7");
  EXPECT_EQ(codeOf("goto"), "E_FAIL 7 7");
  EXPECT_EQ(codeOf(""), "E_FAIL 7 7");
}

TEST_F(WordListCache, WordMayBeTheOneThatIsLookedUp) {
  store(kTable);
  KEPString word = "GOTO";
  EXPECT_EQ(Utilities::GetAptWord(1045, word), S_OK);
  EXPECT_EQ(word.View(), "PARTNO");
}

TEST_F(WordListCache, WordWithoutCodeIsNotFound) {
  store("*START_MINOR_WORDS\nTPRINT,X NOTE,181 LAST,7\n*END\n");
  EXPECT_EQ(codeOf("TPRINT"), "S_OK 4 181");
  EXPECT_EQ(codeOf("NOTE"), "S_OK 4 7");
  EXPECT_EQ(codeOf("LAST"), "E_FAIL 7 7");
  EXPECT_EQ(wordOf(7), "S_OK NOTE");
}

TEST_F(WordListCache, CodeThatNobodyHasIsNotFound) {
  store(kTable);
  EXPECT_EQ(wordOf(99), "E_FAIL kept");
  EXPECT_EQ(wordOf(-1), "E_FAIL kept");
}

TEST_F(WordListCache, StoreReplacesTheListWholesale) {
  store(kTable);
  store("*START_MINOR_WORDS\nOFF,72\n*END\n");
  EXPECT_EQ(codeOf("GOTO"), "E_FAIL 7 7");
  EXPECT_EQ(wordOf(72), "S_OK OFF");
}

TEST_F(WordListCache, FailedStoreLeavesAnEmptyList) {
  store(kTable);
  EXPECT_EQ(Utilities::StoreListOfPPWords(KEPUnicodeString("/absent/table")), E_FAIL);
  EXPECT_EQ(codeOf("FINI"), "E_FAIL 7 7");
  EXPECT_EQ(codeOf("NOTE"), "E_FAIL 7 7");
  EXPECT_TRUE(ppword::wordList().has_value());
}

TEST_F(WordListCache, StoreThatRaisesLeavesAnEmptyList) {
  store(kTable);
  EXPECT_EQ(raisedBy([] { Utilities::StoreListOfPPWords(KEPIMfgProgram_var()); }),
            "ERR_NULL_HANDLE");
  EXPECT_EQ(codeOf("FINI"), "E_FAIL 7 7");
  EXPECT_TRUE(ppword::wordList().has_value());
}

TEST_F(WordListCache, ProgramCanBeStored) {
  const Folders folders;
  folders.file("a/PPTables/mill", "*START_MINOR_WORDS\nON,71\n*END\n");
  folders.search("a");
  EXPECT_EQ(Utilities::StoreListOfPPWords(programOn("mill")), S_OK);
  EXPECT_EQ(codeOf("ON"), "S_OK 4 71");
  EXPECT_EQ(Utilities::StoreListOfPPWords(programOn("lathe")), E_FAIL);
  EXPECT_EQ(lastError(), "ERR_5015 3 (0)");
  EXPECT_EQ(codeOf("ON"), "E_FAIL 7 7");
}

TEST_F(WordListCache, DeleteEndsTheListAndIsHarmlessWithoutOne) {
  store(kTable);
  EXPECT_EQ(Utilities::DeleteListOfPPWords(), S_OK);
  EXPECT_FALSE(ppword::wordList().has_value());
  EXPECT_EQ(codeOf("NOTE"), "E_FAIL 7 7");
  EXPECT_EQ(wordOf(181), "E_FAIL kept");
  EXPECT_EQ(Utilities::DeleteListOfPPWords(), S_OK);
  store(kTable);
  EXPECT_EQ(codeOf("NOTE"), "S_OK 4 181");
}

TEST_F(WordListCache, FiveThousandWordsAreAllFound) {
  std::string table = "*START_MINOR_WORDS\n";
  for (int i = 1; i <= 5000; ++i) {
    table += "W" + std::to_string(i) + "," + std::to_string(10000 + i) + "\n";
  }
  store(table + "*END\n");
  for (int i = 1; i <= 5000; ++i) {
    ASSERT_EQ(codeOf(("W" + std::to_string(i)).c_str()), "S_OK 4 " + std::to_string(10000 + i));
    ASSERT_EQ(wordOf(10000 + i), "S_OK W" + std::to_string(i));
  }
}

TEST(WordList, MoreCodesThanWordsOrKindsAreBounded) {
  KEPRawCollint kinds;
  KEPRawCollint codes;
  kinds.Append(1);
  for (const int code : {5, 6, 7}) codes.Append(code);
  const ppword::WordList list(listOf({"A", "B"}), kinds, codes);
  EXPECT_EQ(list.find("A")->code, 5);
  EXPECT_FALSE(list.find("B").has_value());
  EXPECT_EQ(list.wordOf(6)->View(), "B");
  EXPECT_EQ(list.wordOf(7), nullptr);
}

}  // namespace
