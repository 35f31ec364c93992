// The setting MFG_UNEVALUATED_PPPARAMETER, which a process reads once: each test runs in a process
// of its own.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "KEPIMfgSyntaxEvaluation.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

constexpr const char* kSetting = "MFG_UNEVALUATED_PPPARAMETER";

std::string instantiated(const char* syntax) {
  const PPWordDocument document;
  const KEPIMfgSyntaxEvaluation_var evaluation = document.instruction("NC_X", {syntax});
  KEPListValKEPUnicodeString lines;
  const int first = 1;
  EXPECT_TRUE(evaluation->InstantiateSyntax(lines, first));
  return texts(lines).at(0);
}

TEST(UnevaluatedText, SettingStandsInPlaceOfTheParameter) {
  ASSERT_EQ(setenv(kSetting, "0", 1), 0);
  EXPECT_EQ(instantiated("GOTO/%BAD,1"), "GOTO/0,1");
  EXPECT_EQ(instantiated("(GOTO/%BAD)"), "(GOTO/0)");
  EXPECT_EQ(instantiated("GOTO/&BAD,%(BAD),%BAD"), "GOTO/0,0,0");
}

TEST(UnevaluatedText, SettingIsReadOnceForTheProcess) {
  ASSERT_EQ(setenv(kSetting, "0", 1), 0);
  EXPECT_EQ(instantiated("GOTO/%BAD,1"), "GOTO/0,1");
  ASSERT_EQ(setenv(kSetting, "7", 1), 0);
  EXPECT_EQ(instantiated("GOTO/%BAD,1"), "GOTO/0,1");
}

TEST(UnevaluatedText, SettingMadeAfterTheFirstUseHasNoEffect) {
  ASSERT_EQ(unsetenv(kSetting), 0);
  EXPECT_EQ(instantiated("GOTO/%BAD,1"), "GOTO/,1");
  ASSERT_EQ(setenv(kSetting, "0", 1), 0);
  EXPECT_EQ(instantiated("GOTO/%BAD,1"), "GOTO/,1");
}

TEST(UnevaluatedText, SettingIsReadWhenTheFirstUnevaluatedParameterIsMet) {
  ASSERT_EQ(unsetenv(kSetting), 0);
  EXPECT_EQ(instantiated("CYCLE/ON"), "CYCLE/ON");
  ASSERT_EQ(setenv(kSetting, "0", 1), 0);
  EXPECT_EQ(instantiated("GOTO/%BAD,1"), "GOTO/0,1");
}

TEST(UnevaluatedText, EmptySettingWritesNothing) {
  ASSERT_EQ(setenv(kSetting, "", 1), 0);
  EXPECT_EQ(instantiated("GOTO/%BAD,1"), "GOTO/,1");
}

TEST(UnevaluatedText, ReferenceInTheTextIsReplacedByTheLaterPasses) {
  ASSERT_EQ(setenv(kSetting, "%WORSE", 1), 0);
  EXPECT_EQ(instantiated("GOTO/&BAD,1"), "GOTO/%WORSE,1");
}

}  // namespace
}  // namespace ppword::test
