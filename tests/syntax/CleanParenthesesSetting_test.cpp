// The setting MFG_PPWORD_CLEAN_PARENTHESIS, which a process reads once: each test runs in a process
// of its own.

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/syntax/Instantiated.h"

namespace ppword::test {
namespace {

constexpr const char* kSetting = "MFG_PPWORD_CLEAN_PARENTHESIS";
constexpr const char* kSyntax = "X/(1+2)*3";
constexpr const char* kCleaned = "X/    9.000000";
constexpr const char* kKept = "X/(    3.000000)";

Instantiated instantiated() {
  const PPWordDocument document;
  return instantiate(document.instruction("NC_X", {kSyntax}));
}

TEST(CleanParenthesesSetting, AnyTextCleans) {
  ASSERT_EQ(setenv(kSetting, "0", 1), 0);
  EXPECT_EQ(instantiated(), (Instantiated{true, {kCleaned}}));
}

TEST(CleanParenthesesSetting, UnsetKeepsTheParentheses) {
  ASSERT_EQ(unsetenv(kSetting), 0);
  EXPECT_EQ(instantiated(), (Instantiated{true, {kKept}}));
}

TEST(CleanParenthesesSetting, EmptyKeepsTheParentheses) {
  ASSERT_EQ(setenv(kSetting, "", 1), 0);
  EXPECT_EQ(instantiated(), (Instantiated{true, {kKept}}));
}

TEST(CleanParenthesesSetting, IsReadOnceForTheProcess) {
  ASSERT_EQ(setenv(kSetting, "1", 1), 0);
  EXPECT_EQ(instantiated(), (Instantiated{true, {kCleaned}}));
  ASSERT_EQ(unsetenv(kSetting), 0);
  EXPECT_EQ(instantiated(), (Instantiated{true, {kCleaned}}));
}

}  // namespace
}  // namespace ppword::test
