#include <gtest/gtest.h>

#include <fstream>

#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "tests/environment/Programs.h"
#include "tests/support/Folders.h"
#include "tests/support/PPWordDocument.h"

namespace {

using Utilities = KEPMfgPPWordUtilities;

constexpr std::string_view kOwnTable = "*START_NC_INSTRUCTION NC_MINE\nMINE/1\n*END\n";

class TableEnvironment : public testing::Test {
 protected:
  void SetUp() override {
    KEPError::KEPCleanLastError();
    folders.directory("a/PPTables");
    folders.search("a");
  }
  void TearDown() override { KEPError::KEPCleanLastError(); }

  // "status found" of a program of the document.
  [[nodiscard]] std::string initialised(const KEPIMfgProgram_var& program) const {
    int found = 7;
    const HRESULT status = Utilities::InitializePPWordsEnvironment(program, &found);
    return (status == S_OK ? "S_OK " : status == E_FAIL ? "E_FAIL " : "? ") + std::to_string(found);
  }
  [[nodiscard]] bool holds(std::string_view name) const {
    return static_cast<bool>(document.find(name));
  }

  Folders folders;
  ppword::test::PPWordDocument document;
};

TEST_F(TableEnvironment, TableOfTheProgramIsLoadedIntoItsDocument) {
  folders.file("a/PPTables/mill", kOwnTable);
  EXPECT_EQ(initialised(programOn("mill", document.document)), "S_OK 1");
  EXPECT_TRUE(holds("NC_MINE"));
}

TEST_F(TableEnvironment, EveryCallLoads) {
  folders.file("a/PPTables/mill", kOwnTable);
  const auto program = programOn("mill", document.document);
  EXPECT_EQ(initialised(program), "S_OK 1");
  folders.file("a/PPTables/mill", "*START_NC_INSTRUCTION NC_OTHER\nOTHER/1\n*END\n");
  EXPECT_EQ(initialised(program), "S_OK 1");
  EXPECT_TRUE(holds("NC_OTHER"));
}

TEST_F(TableEnvironment, WhatIsMissingIsNoErrorHere) {
  folders.file("a/PPTables/mill", kOwnTable);
  EXPECT_EQ(initialised(programWithoutResource()), "S_OK 0");
  EXPECT_EQ(initialised(programOn(std::nullopt, document.document)), "S_OK 0");
  EXPECT_EQ(initialised(programOn("", document.document)), "S_OK 0");
  EXPECT_EQ(initialised(programOn("Mill", document.document)), "S_OK 0");
  EXPECT_EQ(lastError(), "");
  EXPECT_FALSE(holds("NC_MINE"));
}

TEST_F(TableEnvironment, TableThatFailsItsCheckIsFoundAndFails) {
  folders.file("a/PPTables/mill", "*START_LIST\n*END\n");
  EXPECT_EQ(initialised(programOn("mill", document.document)), "E_FAIL 1");
  EXPECT_EQ(lastError(), "ERR_5006 2 (1)");
}

TEST_F(TableEnvironment, SecondFolderServesWhatTheFirstLacks) {
  folders.file("b/PPTables/mill", kOwnTable);
  folders.file("a/PPTables/lathe", "*OOPS\n");
  folders.search("a:b");
  EXPECT_EQ(initialised(programOn("mill", document.document)), "S_OK 1");
  folders.file("a/PPTables/mill", "*OOPS\n");
  EXPECT_EQ(initialised(programOn("mill", document.document)), "E_FAIL 1");
  EXPECT_EQ(lastError(), "ERR_5001 2 (1)");
}

TEST_F(TableEnvironment, MissingContainersRaiseTheNullHandleError) {
  folders.file("a/PPTables/mill", kOwnTable);
  int found = 7;
  const auto program = programOn("mill");
  EXPECT_EQ(raisedBy([&] { Utilities::InitializePPWordsEnvironment(program, &found); }),
            "ERR_NULL_HANDLE");
  EXPECT_EQ(found, 1);
}

}  // namespace
