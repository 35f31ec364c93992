#include <gtest/gtest.h>

#include <sstream>

#include "tests/document/StoredContent.h"
#include "tests/generator/Generation.h"
#include "tests/generator/Scratch.h"

namespace host::test {
namespace {

Lines manualLines(const std::string& text) {
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
       manualLines(Scratch::textOf(PPWORD_SOURCE_DIR "/docs/job-format.md"))) {
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
  EXPECT_EQ(shown.size(), 24U);
  for (const std::string& line : shown) {
    std::string job = line + '\n';
    if (!line.starts_with("{\"job\"")) job.insert(0, "\n").insert(0, kHeader);
    if (!line.starts_with("{\"end\"")) job += "{\"end\":true}\n";
    const KEPVar<Document> document = newDocument();
    for (const char* name : {"NC_RAPID", "NC_GOTO"}) addCommand(*document, name, 1);
    EXPECT_EQ(post(document, job).error, "") << line;
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
  /// The table that it is posted with; empty for none.
  std::string_view table;
  long elements;
};

std::string example(std::string_view name) {
  return PPWORD_SOURCE_DIR "/examples/" + std::string(name);
}

TEST(JobExamples, EachGivesItsText) {
  constexpr Example kExamples[] = {
      {"arcs", "", 8},
      {"drilling", "", 23},
      {"five-axis", "mill-turn.pptable", 33},
      {"helix", "mill-turn.pptable", 8},
      {"sequential", "mill-turn.pptable", 13},
      {"turning", "mill-turn.pptable", 15},
  };
  for (const auto& [name, table, elements] : kExamples) {
    const std::string job(name);
    const auto document = newDocument();
    if (!table.empty()) {
      const std::string path = example(table);
      ASSERT_EQ(document->ppWordContainer()->LoadPPWordTable(KEPUnicodeString(path)), S_OK);
    }
    const Posting posting = post(document, Scratch::textOf(example(job + ".job.jsonl")));
    EXPECT_EQ(posting.error, "") << name;
    EXPECT_EQ(posting.lines, manualLines(Scratch::textOf(example("expected/" + job + ".apt"))))
        << name;
    EXPECT_EQ(posting.summary.elements, elements) << name;
    EXPECT_EQ(posting.summary.unevaluated.total(), 0) << name;
    EXPECT_EQ(posting.summary.dropped.total(), 0) << name;
  }
}

}  // namespace
}  // namespace host::test
