// The cases of arithmetic.txt.

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "tests/syntax/Examples.h"

namespace ppword::test {
namespace {

TEST(Arithmetic, LinesGiveTheirResults) {
  std::ifstream cases(PPWORD_SOURCE_DIR "/tests/syntax/arithmetic.txt");
  const auto all = readExamples(cases);
  ASSERT_GT(all.size(), 100U);
  for (const Example& example : all) {
    ASSERT_FALSE(example.syntax.empty() || example.lines.empty()) << example.values;
    EXPECT_EQ(linesOf(example), example.lines) << example.syntax.front() << '\n' << example.values;
  }
}

}  // namespace
}  // namespace ppword::test
