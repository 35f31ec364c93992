// The table of known parameters: what the catalogue has and what the manual says.

#include "post/parameters/Parameters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

#include "inspect/lint/LintCatalogue.h"
#include "tests/generator/Jobs.h"

namespace host::test {
namespace {

std::string manual() {
  std::ifstream file(PPWORD_SOURCE_DIR "/docs/parameters.md");
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

/// "X", or "X, Y or Z".
std::string lettersOf(const ParameterRow& row) {
  std::string text;
  for (std::size_t i = 0; i < row.letters.size(); ++i) {
    if (i > 0) text += i + 1 == row.letters.size() ? " or " : ", ";
    text += row.letters[i];
  }
  return text;
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

/// The row of the manual.
std::string manualRow(const ParameterRow& row) {
  std::string names;
  for (const Parameter& parameter : knownParameters()) {
    if (parameter.row == &row) names += "`" + parameter.name + "` ";
  }
  const std::string meaning = row.letters.empty()
                                  ? std::string(row.meaning)
                                  : replaced(std::string(row.meaning), "?", lettersOf(row));
  return "\n| " + names + "| " + meaning + " | " + std::string(typeName(row.type)) + " | " +
         std::string(row.unit) + " | " + std::string(sourceName(row.source)) + ", `" +
         replaced(std::string(row.job), ", ", "`, `") + "` |\n";
}

TEST(Parameters, ManualHasEveryRowInOrder) {
  const std::string text = manual();
  std::size_t last = 0;
  for (const ParameterRow& row : parameterRows()) {
    const std::size_t at = text.find(manualRow(row));
    ASSERT_NE(at, text.npos) << manualRow(row);
    EXPECT_GT(at, last) << row.name;
    last = at;
  }
  const auto inManual = std::count(text.begin(), text.end(), '\n');
  EXPECT_GT(inManual, 73);
}

TEST(Parameters, ManualHasNoOtherRow) {
  std::istringstream lines(manual());
  std::set<std::string> known;
  for (const ParameterRow& row : parameterRows()) known.insert(manualRow(row));
  long count = 0;
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("| `")) continue;
    ++count;
    EXPECT_TRUE(known.contains('\n' + line + '\n')) << line;
  }
  EXPECT_EQ(count, 73);
}

TEST(Parameters, CatalogueAsksForNoOther) {
  // The lint knows the names of the catalogue and those of the table.
  long count = 0;
  for (const std::string& name : lintCatalogue().parameterNames) {
    if (!name.starts_with("MFG_")) continue;
    ++count;
    EXPECT_NE(findParameter(name), nullptr) << name;
  }
  EXPECT_EQ(count, std::ssize(knownParameters()));
}

TEST(Parameters, NameAndMeaningHaveTheLetter) {
  const Parameter* const center = findParameter("MFG_CIRCLE_Y_CENTER");
  ASSERT_NE(center, nullptr);
  EXPECT_EQ(center->letter, 1U);
  EXPECT_EQ(meaningOf(*center), "the Y coordinate of the centre of the circle");
  EXPECT_EQ(findParameter("MFG_CIRCLE_?_CENTER"), nullptr);
  EXPECT_EQ(findParameter(""), nullptr);
  EXPECT_EQ(meaningOf(*findParameter("MFG_FED_UNIT")),
            "a second name of MFG_FEED_UNIT, with a list of its own");
}

}  // namespace
}  // namespace host::test
