// The examples of the headers in interfaces/ compile and write what the headers say. Each one is
// cut out of its header while the tests are built.

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <string>

#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgPPWordContainer.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "KEPMfgPPTableTxt.h"
#include "host/modeler/Document.h"

namespace {

void runContainerExample(const KEPIMfgPPWordContainer_var& words) {
#include "KEPIMfgPPWordContainer.example"
}

void runSyntaxEvaluationExample(const KEPIMfgPPWordContainer_var& words) {
#include "KEPIMfgSyntaxEvaluation.example"
}

void runTableReaderExample() {
#include "KEPMfgPPTableTxt.example"
}

/// In the folder of mill.pptable, with a new document.
class HeaderExamples : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::current_path(PPWORD_SOURCE_DIR "/examples");
    testing::internal::CaptureStdout();
  }
  void TearDown() override { std::filesystem::current_path(before_); }

  static std::string printed() { return testing::internal::GetCapturedStdout(); }
  [[nodiscard]] KEPIMfgPPWordContainer_var words() const { return document_->ppWordContainer(); }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
  KEPVar<host::Document> document_ = host::newDocument();
};

TEST_F(HeaderExamples, ContainerWritesAPoint) {
  runContainerExample(words());
  EXPECT_EQ(printed(), "GOTO/   10.0000,   -2.5000,    0.1250\n");
}

TEST_F(HeaderExamples, SyntaxEvaluationWritesALineOfTheUser) {
  const KEPIMfgBufferPoint_var point = words();
  point->SetPoint(2.5, 0.0, 0.0);
  runSyntaxEvaluationExample(words());
  EXPECT_EQ(printed(), "GOTO/   12.500000,0\n");
}

TEST_F(HeaderExamples, TableReaderListsTheCommands) {
  runTableReaderExample();
  EXPECT_EQ(printed(),
            "NC_COOLANT\nNC_START_MACRO\nNC_END_MACRO\nNC_RAPID\nNC_GOTO\nNC_GOTO_VARIABLE_AXIS\n"
            "NC_MULTAX_ON\nNC_MULTAX_OFF\nNC_FEEDRATE\nNC_SPINDLE_START\nNC_SPINDLE_OFF\n"
            "NC_DELAY\nNC_OUTPUT_COMMENT\nNC_TOOL_CHANGE\nNC_CUTTER\nNC_PROGRAM_STOP\n"
            "NC_OPTIONAL_STOP\n");
}

}  // namespace
