#include "inspect/compare/LineDifference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace host {
namespace {

using Lines = std::vector<std::string_view>;

/// The lines of a text, one for each of its characters.
Lines linesOf(std::string_view text) {
  Lines lines;
  for (std::size_t i = 0; i < text.size(); ++i) lines.push_back(text.substr(i, 1));
  return lines;
}

/// "BEGIN-END>BEGIN-END" for each hunk.
std::string hunks(const Lines& before, const Lines& after) {
  std::string text;
  for (const auto& [old, now] : lineHunks(before, after)) {
    text += (text.empty() ? "" : " ") + std::to_string(old.begin) + '-' + std::to_string(old.end) +
            '>' + std::to_string(now.begin) + '-' + std::to_string(now.end);
  }
  return text;
}

std::string hunks(std::string_view before, std::string_view after) {
  return hunks(linesOf(before), linesOf(after));
}

/// The length of a longest common subsequence, from the table of all pairs of beginnings.
std::size_t commonLines(std::string_view before, std::string_view after) {
  std::vector<std::vector<std::size_t>> most(before.size() + 1,
                                             std::vector<std::size_t>(after.size() + 1));
  for (std::size_t x = 1; x <= before.size(); ++x) {
    for (std::size_t y = 1; y <= after.size(); ++y) {
      most[x][y] = before[x - 1] == after[y - 1] ? most[x - 1][y - 1] + 1
                                                 : std::max(most[x - 1][y], most[x][y - 1]);
    }
  }
  return most[before.size()][after.size()];
}

TEST(LineDifference, EqualListsHaveNoHunk) {
  EXPECT_EQ(hunks("", ""), "");
  EXPECT_EQ(hunks("abc", "abc"), "");
}

TEST(LineDifference, OneLineIsAddedRemovedOrChanged) {
  EXPECT_EQ(hunks("ac", "abc"), "1-1>1-2");
  EXPECT_EQ(hunks("abc", "ac"), "1-2>1-1");
  EXPECT_EQ(hunks("abc", "axc"), "1-2>1-2");
  EXPECT_EQ(hunks("", "a"), "0-0>0-1");
  EXPECT_EQ(hunks("a", ""), "0-1>0-0");
  EXPECT_EQ(hunks("a", "b"), "0-1>0-1");
}

TEST(LineDifference, HunksLieBetweenEqualLines) {
  EXPECT_EQ(hunks("abcde", "xbcdy"), "0-1>0-1 4-5>4-5");
  EXPECT_EQ(hunks("aabb", "bbaa"), "0-2>0-0 4-4>2-4");
}

TEST(LineDifference, AsManyLinesAsPossibleStay) {
  std::mt19937 random(1);
  for (int round = 0; round < 3000; ++round) {
    std::string before(random() % 12, ' ');
    std::string after(random() % 12, ' ');
    for (char& line : before) line = static_cast<char>('a' + random() % 3);
    for (char& line : after) line = static_cast<char>('a' + random() % 3);
    std::string patched;
    std::size_t at = 0;
    std::size_t removed = 0;
    for (const auto& [old, now] : lineHunks(linesOf(before), linesOf(after))) {
      patched += before.substr(at, old.begin - at) + after.substr(now.begin, now.end - now.begin);
      at = old.end;
      removed += old.end - old.begin;
    }
    patched += before.substr(at);
    EXPECT_EQ(patched, after) << before;
    EXPECT_EQ(before.size() - removed, commonLines(before, after)) << before << ' ' << after;
  }
}

TEST(LineDifference, ListsWithTooManyEditsAreOneHunk) {
  std::vector<std::string> texts(4000);
  std::ranges::generate(texts, [i = 0]() mutable { return std::to_string(i++); });
  Lines before{"first"};
  Lines after{"first"};
  for (int i = 0; i < 2000; ++i) {
    before.insert(before.end(), {texts[static_cast<std::size_t>(i)], "same"});
    after.insert(after.end(), {texts[static_cast<std::size_t>(i) + 2000], "same"});
  }
  EXPECT_EQ(hunks(before, after), "1-4000>1-4000");
}

}  // namespace
}  // namespace host
