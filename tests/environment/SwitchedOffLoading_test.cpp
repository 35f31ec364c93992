// The setting MFG_PPTABLE_NOLOAD, which a process reads once: each test runs in a process of its
// own.

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/environment/Programs.h"
#include "tests/support/Folders.h"
#include "tests/support/PPWordDocument.h"

namespace {

constexpr const char* kSetting = "MFG_PPTABLE_NOLOAD";

class SwitchedOffLoading : public testing::Test {
 protected:
  void SetUp() override {
    table = folders.file("a/PPTables/mill", "*START_NC_INSTRUCTION NC_MINE\nMINE/1\n*END\n");
    folders.search("a");
    program = programOn("mill", document.document);
  }

  // "found", and whether the table is in the document.
  [[nodiscard]] std::string initialised(const KEPIMfgProgram_var& of) const {
    int found = 7;
    EXPECT_EQ(KEPMfgPPWordUtilities::InitializePPWordsEnvironment(of, &found), S_OK);
    return std::to_string(found) + (document.find("NC_MINE") ? " loaded" : " not loaded");
  }

  Folders folders;
  ppword::test::PPWordDocument document;
  KEPIMfgProgram_var program;
  std::string table;
};

TEST_F(SwitchedOffLoading, AnyTextSwitchesLoadingOff) {
  ASSERT_EQ(setenv(kSetting, "0", 1), 0);
  EXPECT_EQ(initialised(program), "0 not loaded");
}

TEST_F(SwitchedOffLoading, BlankIsATextToo) {
  ASSERT_EQ(setenv(kSetting, " ", 1), 0);
  EXPECT_EQ(initialised(program), "0 not loaded");
}

TEST_F(SwitchedOffLoading, EmptySettingLeavesItOn) {
  ASSERT_EQ(setenv(kSetting, "", 1), 0);
  EXPECT_EQ(initialised(program), "1 loaded");
}

TEST_F(SwitchedOffLoading, SettingClearedLaterHasNoEffect) {
  ASSERT_EQ(setenv(kSetting, "1", 1), 0);
  EXPECT_EQ(initialised(program), "0 not loaded");
  ASSERT_EQ(unsetenv(kSetting), 0);
  EXPECT_EQ(initialised(program), "0 not loaded");
}

TEST_F(SwitchedOffLoading, SettingMadeLaterHasNoEffect) {
  ASSERT_EQ(unsetenv(kSetting), 0);
  EXPECT_EQ(initialised(programOn("absent", document.document)), "0 not loaded");
  ASSERT_EQ(setenv(kSetting, "1", 1), 0);
  EXPECT_EQ(initialised(program), "1 loaded");
}

TEST_F(SwitchedOffLoading, SettingIsReadAtTheFirstInitialisation) {
  ASSERT_EQ(unsetenv(kSetting), 0);
  KEPUnicodeString path;
  EXPECT_EQ(KEPMfgPPWordUtilities::BuildCompletePathFromPPWordTableName("mill", path), 1);
  ASSERT_EQ(setenv(kSetting, "1", 1), 0);
  EXPECT_EQ(initialised(program), "0 not loaded");
}

TEST_F(SwitchedOffLoading, ProgramIsNotLookedAt) {
  ASSERT_EQ(setenv(kSetting, "1", 1), 0);
  EXPECT_EQ(initialised(nullptr), "0 not loaded");
}

TEST_F(SwitchedOffLoading, DirectLoadAndWordsDoNotCare) {
  ASSERT_EQ(setenv(kSetting, "1", 1), 0);
  EXPECT_EQ(initialised(program), "0 not loaded");
  EXPECT_EQ(document.words->LoadPPWordTable(KEPUnicodeString(table)), S_OK);
  EXPECT_TRUE(document.find("NC_MINE"));
  EXPECT_EQ(KEPMfgPPWordUtilities::StoreListOfPPWords(program), S_OK);
}

}  // namespace
