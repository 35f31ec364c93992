// docs/lint.md and the manual page have the rules of the program.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "inspect/lint/Lint.h"
#include "inspect/lint/LintRules.h"
#include "tests/table/TableFiles.h"

namespace host {
namespace {

std::string contentOf(const std::string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string manual() { return contentOf(PPWORD_SOURCE_DIR "/docs/lint.md"); }

/// The rows that begin with a key between backquotes.
std::vector<std::string> rows() {
  std::vector<std::string> rows;
  const std::string text = manual();
  const std::regex row("\\| `([a-z-]+)` \\|[^\n]*");
  for (std::sregex_iterator at(text.begin(), text.end(), row), end; at != end; ++at) {
    rows.push_back(at->str());
  }
  return rows;
}

TEST(LintManual, RulesAreThoseOfTheProgram) {
  const auto all = rows();
  ASSERT_EQ(all.size(), lintRules().size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    const auto& [key, fault, hint, severity] = lintRules()[i];
    const std::string begin =
        "| `" + std::string(key) + "` | " + std::string(fault) + " | " + std::string(hint) + " |";
    EXPECT_EQ(all[i].substr(0, begin.size()), begin);
  }
}

TEST(LintManual, ManualPageNamesEveryRule) {
  const std::string page = contentOf(PPWORD_SOURCE_DIR "/docs/ppword.1");
  for (const LintRule& rule : lintRules()) {
    const std::string key = std::regex_replace(std::string(rule.key), std::regex("-"), "\\-");
    EXPECT_NE(page.find("\n.B " + key + "\n"), std::string::npos) << rule.key;
  }
}

TEST(LintManual, CompleteTableHasNoWarning) {
  const std::string text = contentOf(PPWORD_SOURCE_DIR "/docs/table-format.md");
  const std::string fence = "```text\n";
  const std::size_t begin = text.find(fence) + fence.size();
  const TableBytes table(text.substr(begin, text.find("```", begin) - begin));
  ASSERT_NE(table.text().find("*START_SEQUENCE"), std::string::npos);
  for (const Diagnostic& finding : lintTable(table, "T")) {
    EXPECT_EQ(finding.severity, Severity::Note) << finding.line << ' ' << finding.message;
  }
}

bool tells(const std::string& line, const std::string& key) {
  const TableFile file("*START_NC_COMMAND NC_A\n" + line +
                       "\n*END\n*START_FORMAT MFG_A\n%11.5f\n*END\n"
                       "*START_FORMAT MFG_B\n%11.5f\n*END\n");
  const auto all = lintTable(std::string(file.path().View()));
  return std::any_of(all.begin(), all.end(),
                     [&](const Diagnostic& finding) { return finding.key == key; });
}

TEST(LintManual, ExamplesOfLinesAreTold) {
  const std::regex examples("\\| `([a-z-]+)` \\|.*\\| `([^`]+)` \\| `([^`]+)` \\|");
  std::size_t count = 0;
  for (const std::string& row : rows()) {
    std::smatch parts;
    if (!std::regex_match(row, parts, examples)) continue;
    ++count;
    EXPECT_TRUE(tells(parts[2], parts[1])) << row;
    EXPECT_FALSE(tells(parts[3], parts[1])) << row;
  }
  EXPECT_EQ(count, 24U);
}

}  // namespace
}  // namespace host
