// The examples of docs/syntax.md.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "tests/syntax/Examples.h"

namespace ppword::test {
namespace {

constexpr std::string_view kFence = "```";

/// The blocks of the manual that stand between plain fences.
std::string plainBlocks() {
  std::ifstream manual(PPWORD_SOURCE_DIR "/docs/syntax.md");
  std::string blocks;
  bool isInside = false;
  bool isPlain = false;
  for (std::string line; std::getline(manual, line);) {
    const bool isFence = line.starts_with(kFence);
    if (isFence) isInside = !isInside;
    if (isFence && isInside) isPlain = line == kFence;
    if (isInside && isPlain) blocks += (isFence ? "" : line) + '\n';
  }
  return blocks;
}

TEST(SyntaxManual, ExamplesGiveTheirLines) {
  std::istringstream blocks(plainBlocks());
  const auto all = readExamples(blocks);
  ASSERT_EQ(all.size(), 23U);
  for (const Example& example : all) {
    EXPECT_EQ(linesOf(example), example.lines) << example.syntax.front();
  }
}

}  // namespace
}  // namespace ppword::test
