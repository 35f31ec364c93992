#include <gtest/gtest.h>

#include "KEPMfgPPWordUtilities.h"

namespace {

using Texts = std::vector<std::string>;

Texts split(std::string_view text) {
  KEPListValKEPUnicodeString lines;
  lines.Append("before");
  EXPECT_EQ(KEPMfgPPWordUtilities::SplitKEPUnicodeStringWithLF(KEPUnicodeString(text), lines),
            S_OK);
  Texts result;
  for (const KEPUnicodeString& line : lines) result.emplace_back(line.View());
  return result;
}

struct Case {
  std::string_view text;
  Texts lines;
};

TEST(TextLines, TextIsSplitAtItsLineFeeds) {
  const Case cases[] = {
      {"", {}},
      {"ABC", {"ABC"}},
      {"A\nB", {"A", "B"}},
      {"A\r\nB\r\n", {"A", "B"}},
      {"A\nB\n", {"A", "B"}},
      {"A\n\nB", {"A", "", "B"}},
      {"A\n\n", {"A", ""}},
      {"\n\n", {"", ""}},
      {"\nA", {"", "A"}},
      {"\r\nA", {"", "A"}},
      {"A\rB\nC", {"A\rB", "C"}},
      {"A\r\r\nB", {"A\r", "B"}},
      {"A\nB\r", {"A", "B\r"}},
      {" A \n\xC3\xA4", {" A ", "\xC3\xA4"}},
  };
  for (const Case& example : cases) {
    EXPECT_EQ(split(example.text), example.lines) << example.text;
  }
}

TEST(TextLines, TextOfOneLineKeepsItsLineEnd) {
  EXPECT_EQ(split("ABC\n"), Texts{"ABC\n"});
  EXPECT_EQ(split("ABC\r\n"), Texts{"ABC\r\n"});
  EXPECT_EQ(split("\n"), Texts{"\n"});
  EXPECT_EQ(split("\r\n"), Texts{"\r\n"});
}

TEST(TextLines, TextMayBeALineOfTheResult) {
  KEPListValKEPUnicodeString lines;
  lines.Append("A\nB");
  KEPMfgPPWordUtilities::SplitKEPUnicodeStringWithLF(lines[1], lines);
  ASSERT_EQ(lines.Size(), 2);
  EXPECT_EQ(lines[1].View(), "A");
  EXPECT_EQ(lines[2].View(), "B");
}

}  // namespace
