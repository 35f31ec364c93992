#include <gtest/gtest.h>

#include <sstream>

#include "tests/generator/Generation.h"
#include "tests/generator/Scratch.h"

namespace host::test {
namespace {

Lines linesOf(const std::string& text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// The lines of all blocks of the manual that are marked with this word.
Lines blocksOf(std::string_view mark) {
  Lines lines;
  bool inside = false;
  for (const std::string& line :
       linesOf(Scratch::textOf(PPWORD_SOURCE_DIR "/docs/job-format.md"))) {
    if (line.starts_with("```")) {
      inside = line == "```" + std::string(mark);
    } else if (inside) {
      lines.push_back(line);
    }
  }
  return lines;
}

std::string joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

TEST(JobManual, CompleteExampleGivesItsText) {
  const Posting posting = post(newDocument(), joined(blocksOf("jsonl")));
  EXPECT_EQ(posting.error, "");
  EXPECT_EQ(posting.summary.unevaluated.total(), 0);
  EXPECT_EQ(posting.lines.size(), 10U);
  EXPECT_EQ(posting.lines, blocksOf("apt"));
}

TEST(JobManual, EveryLineShownIsAccepted) {
  const Lines shown = blocksOf("json");
  EXPECT_EQ(shown.size(), 21U);
  for (const std::string& line : shown) {
    std::string job = line + '\n';
    if (!line.starts_with("{\"job\"")) job.insert(0, "\n").insert(0, kHeader);
    if (!line.starts_with("{\"end\"")) job += "{\"end\":true}\n";
    EXPECT_EQ(post(newDocument(), job).error, "") << line;
  }
}

TEST(JobManual, EveryLineShownAsRefusedGivesItsMessage) {
  const Lines shown = blocksOf("refused");
  ASSERT_EQ(shown.size(), 10U);
  for (std::size_t i = 0; i < shown.size(); i += 2) {
    const std::string error = post(shown[i]).error;
    EXPECT_EQ("plate.job.jsonl" + error.substr(error.find(':')), shown[i + 1]) << shown[i];
  }
}

struct Example {
  std::string_view name;
  long elements;
  std::size_t lines;
  std::string_view first;
  std::string_view last;
};

TEST(JobExamples, EachIsPostedWhole) {
  constexpr Example kExamples[] = {
      {"drilling", 18, 24, "PARTNO PART TO BE MACHINED", "END"},
      {"five-axis", 31, 35, "PARTNO PART TO BE MACHINED", "END"},
      {"arcs", 8, 16, "RAPID", "GOTO/-1.5000,0.0000,0.5000"},
  };
  for (const auto& [name, elements, lines, first, last] : kExamples) {
    const std::string path =
        PPWORD_SOURCE_DIR "/examples/" + std::string(name).append(".job.jsonl");
    const Posting posting = post(newDocument(), Scratch::textOf(path));
    EXPECT_EQ(posting.error, "") << name;
    EXPECT_EQ(posting.summary.elements, elements) << name;
    EXPECT_EQ(posting.summary.unevaluated.total(), 0) << name;
    EXPECT_EQ(posting.summary.dropped.total(), 0) << name;
    ASSERT_EQ(posting.lines.size(), lines) << name;
    EXPECT_EQ(posting.lines.front(), first) << name;
    EXPECT_EQ(posting.lines.back(), last) << name;
  }
}

}  // namespace
}  // namespace host::test
