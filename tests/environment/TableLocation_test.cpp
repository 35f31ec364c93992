#include "src/environment/TableLocation.h"

#include <gtest/gtest.h>

#include "tests/environment/Programs.h"
#include "tests/support/Folders.h"
#include "tests/table/TableFiles.h"

namespace {

using Utilities = KEPMfgPPWordUtilities;

KEPListValKEPUnicodeString names(const Texts& texts) {
  KEPListValKEPUnicodeString list;
  for (const std::string& text : texts) list.Append(std::string_view(text));
  return list;
}

std::string located(const char* name, const Texts& directories, const Texts& files) {
  const auto path = ppword::pathOf(name, names(directories), names(files));
  return path ? std::string(path->View()) : "nothing";
}

class TableLocation : public testing::Test {
 protected:
  void SetUp() override { KEPError::KEPCleanLastError(); }
  void TearDown() override { KEPError::KEPCleanLastError(); }

  // The path that a table name gives, without the test's directory; "0" when none.
  [[nodiscard]] std::string built(std::string_view name) const {
    KEPUnicodeString path = "kept";
    if (Utilities::BuildCompletePathFromPPWordTableName(name, path) == 0) {
      EXPECT_EQ(path.View(), "kept");
      return "0";
    }
    EXPECT_TRUE(path.View().starts_with(folders.path("")));
    return std::string(path.View().substr(folders.path("").size()));
  }
  // What the reader's own check says of the table that a program names.
  [[nodiscard]] static std::string tableOf(const KEPIMfgProgram_var& program) {
    std::unique_ptr<KEPMfgPPTableTxt> reader;
    const HRESULT status = KEPMfgPPWordUtilitiesTest::tableOf(program, reader);
    EXPECT_EQ(status, reader == nullptr ? E_FAIL : S_OK);
    int count = -1;
    return reader != nullptr && reader->GetNumberOfCommand(count) ? std::to_string(count)
                                                                  : lastError();
  }

  Folders folders;
};

TEST(PathOf, FirstFileOfExactlyThisNameIsTaken) {
  EXPECT_EQ(located("mill", {"/a", "/a", "/b"}, {"lathe", "mill", "mill"}), "/a/mill");
  EXPECT_EQ(located("Mill", {"/a", "/a", "/b"}, {"lathe", "mill", "mill"}), "nothing");
  EXPECT_EQ(located("mil", {"/a"}, {"mill"}), "nothing");
  EXPECT_EQ(located("", {"/a"}, {"mill"}), "nothing");
}

TEST(PathOf, EmptyListGivesNothing) { EXPECT_EQ(located("mill", {}, {}), "nothing"); }

TEST(PathOf, FileBeyondTheDirectoriesGivesNothing) {
  EXPECT_EQ(located("mill", {"/a"}, {"lathe", "mill"}), "nothing");
}

TEST_F(TableLocation, NameGivesThePathInTheFirstFolderThatHoldsIt) {
  folders.file("b/PPTables/mill");
  folders.file("c/PPTables/mill");
  folders.file("c/PPTables/lathe");
  folders.search("a:b:c");
  EXPECT_EQ(built("mill"), "b/PPTables/mill");
  EXPECT_EQ(built("lathe"), "c/PPTables/lathe");
  folders.search("c:b");
  EXPECT_EQ(built("mill"), "c/PPTables/mill");
}

TEST_F(TableLocation, NameIsABareFileName) {
  const std::string outside = folders.file("a/outside");
  folders.file("a/PPTables/inner/mill");
  folders.file("a/PPTables/mill");
  folders.search("a");
  for (const std::string& name : {std::string("../outside"), outside, std::string("inner/mill"),
                                  std::string("./mill"), std::string(".."), std::string()}) {
    EXPECT_EQ(built(name), "0") << name;
  }
}

TEST_F(TableLocation, LetterCaseCounts) {
  folders.file("a/PPTables/mill.pptable");
  folders.search("a");
  EXPECT_EQ(built("Mill.pptable"), "0");
  EXPECT_EQ(tableOf(programOn("Mill.pptable")), "ERR_5015 3 (0)");
}

TEST_F(TableLocation, PathMayBeTheName) {
  folders.file("a/PPTables/mill");
  folders.search("a");
  KEPUnicodeString name = "mill";
  EXPECT_EQ(Utilities::BuildCompletePathFromPPWordTableName(name, name), 1);
  EXPECT_EQ(name.View(), folders.path("a/PPTables/mill"));
}

TEST_F(TableLocation, ProgramLeadsToItsTable) {
  folders.file("a/PPTables/mill", "*START_NC_COMMAND NC_A\n*END\n*START_NC_COMMAND NC_B\n*END\n");
  folders.search("a");
  EXPECT_EQ(tableOf(programOn("mill")), "2");
}

TEST_F(TableLocation, WhatAProgramLacksIsAnError) {
  EXPECT_EQ(tableOf(programOn(std::nullopt)), "ERR_5010 3 (0)");
  EXPECT_EQ(tableOf(programWithoutResource()), "ERR_5011 3 (0)");
  EXPECT_EQ(tableOf(programOn("mill")), "ERR_5015 3 (0)");
  EXPECT_EQ(tableOf(programOn("")), "ERR_5015 3 (0)");
}

TEST_F(TableLocation, MissingActivityOrSetupRaisesTheNullHandleError) {
  for (const KEPIMfgProgram_var& program :
       {KEPIMfgProgram_var(), BareProgram::create(), programWithoutSetup()}) {
    EXPECT_EQ(raisedBy([&] { static_cast<void>(tableOf(program)); }), "ERR_NULL_HANDLE");
    int found = 7;
    EXPECT_EQ(raisedBy([&] { Utilities::InitializePPWordsEnvironment(program, &found); }),
              "ERR_NULL_HANDLE");
    EXPECT_EQ(found, 0);
  }
}

TEST_F(TableLocation, ReaderOfAPathIsMadeWithoutTouchingTheFile) {
  std::unique_ptr<KEPMfgPPTableTxt> reader;
  const KEPUnicodeString path(folders.path("absent"));
  EXPECT_EQ(KEPMfgPPWordUtilitiesTest::tableOf(path, reader), S_OK);
  int count = -1;
  EXPECT_FALSE(reader->GetNumberOfCommand(count));
  folders.file("absent", "*START_NC_COMMAND NC_A\n*END\n");
  EXPECT_TRUE(reader->GetNumberOfCommand(count));
  EXPECT_EQ(count, 1);
}

TEST_F(TableLocation, FailureLeavesTheReaderAsItWas) {
  auto reader = std::make_unique<KEPMfgPPTableTxt>("before");
  const KEPMfgPPTableTxt* const before = reader.get();
  EXPECT_EQ(KEPMfgPPWordUtilitiesTest::tableOf(programWithoutResource(), reader), E_FAIL);
  EXPECT_EQ(reader.get(), before);
}

TEST_F(TableLocation, FreeSyntaxesAreThoseOfTheProgramsTable) {
  folders.file("a/PPTables/mill", "*START_SYNTAXES\nRAPID\nGOTO/1\n*END\n");
  folders.search("a");
  KEPListValKEPString syntaxes = listOf({"before"});
  EXPECT_EQ(Utilities::GetListOfSyntaxes(programOn("mill"), syntaxes), S_OK);
  EXPECT_EQ(texts(syntaxes), (Texts{"RAPID", "GOTO/1"}));
}

TEST_F(TableLocation, FreeSyntaxesOfAProgramWithoutTableAreAnError) {
  KEPListValKEPString syntaxes = listOf({"before"});
  EXPECT_EQ(Utilities::GetListOfSyntaxes(programOn(std::nullopt), syntaxes), E_FAIL);
  EXPECT_EQ(lastError(), "ERR_5010 3 (0)");
  EXPECT_EQ(texts(syntaxes), Texts{"before"});
}

TEST_F(TableLocation, FreeSyntaxesWithoutEndFailWithoutErrorAndLeakNothing) {
  folders.file("a/PPTables/mill", "*START_SYNTAXES\nRAPID\n");
  folders.search("a");
  KEPListValKEPString syntaxes;
  const int before = openFiles();
  EXPECT_EQ(Utilities::GetListOfSyntaxes(programOn("mill"), syntaxes), E_FAIL);
  EXPECT_EQ(lastError(), "");
  EXPECT_EQ(openFiles(), before);
}

TEST_F(TableLocation, UtilitiesCanBeMadeAndCopied) {
  const Utilities made;
  Utilities copy(made);
  copy = made;
  EXPECT_EQ(Utilities::DeleteListOfPPWords(), S_OK);
}

}  // namespace
