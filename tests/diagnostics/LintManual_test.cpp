// docs/lint.md and the manual page have the rules of the program.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "inspect/diagnostics/TableWarnings.h"
#include "inspect/lint/Lint.h"
#include "inspect/lint/LintRules.h"
#include "post/consumer/ConsumerProfile.h"
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
    const LintRule& rule = lintRules()[i];
    const std::string begin = "| `" + std::string(rule.key) + "` | " + std::string(rule.fault) +
                              " | " + std::string(rule.hint) + " |";
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

bool tellsTable(const std::string& table, const std::string& key) {
  const Consumer consumer = readProfile("iso4343").consumer;
  const bool isOfProfile = key == "unfit-line";
  const auto all =
      lintTable(TableBytes(table), "T", kMostOfAKind, isOfProfile ? &consumer : nullptr);
  return std::any_of(all.begin(), all.end(),
                     [&](const Diagnostic& finding) { return finding.key == key; });
}

bool tells(const std::string& line, const std::string& key) {
  return tellsTable("*START_NC_COMMAND NC_A\n" + line +
                        "\n*END\n*START_FORMAT MFG_A\n%11.5f\n*END\n"
                        "*START_FORMAT MFG_B\n%11.5f\n*END\n",
                    key);
}

TEST(LintManual, ExamplesOfLinesAreThoseOfTheProgram) {
  const std::regex examples("\\| `([a-z-]+)` \\|.*\\| `([^`]+)` \\| `([^`]+)` \\|");
  std::size_t count = 0;
  const auto all = rows();
  for (std::size_t i = 0; i < all.size(); ++i) {
    std::smatch parts;
    if (!std::regex_match(all[i], parts, examples)) continue;
    ++count;
    EXPECT_EQ(parts[2].str(), lintRules()[i].reported);
    EXPECT_EQ(parts[3].str(), lintRules()[i].sound);
  }
  EXPECT_EQ(count, 30U);
}

TEST(LintManual, ExamplesOfTheRulesAreToldAndNotTold) {
  for (const LintRule& rule : lintRules()) {
    const std::string key(rule.key);
    // Its example is too long to be shown.
    if (key == "long-token") continue;
    const auto tellsExample = [&](std::string_view example) {
      const bool isLine = !example.starts_with('*') && key != "no-section";
      return isLine ? tells(std::string(example), key)
                    : tellsTable(std::string(example) + '\n', key);
    };
    EXPECT_TRUE(tellsExample(rule.reported)) << key;
    EXPECT_FALSE(tellsExample(rule.sound)) << key;
    EXPECT_TRUE(rule.about.ends_with('.')) << key;
  }
}

TEST(LintManual, WarningsOfTheCheckAreRules) {
  const std::string tables[] = {"", std::string(2000, 'A'),
                                "*START_NC_COMMAND NC_A\n*INSERT NC_A\n*END\n",
                                "*START_FORMAT MFG_A\n*END\n"};
  for (const std::string& table : tables) {
    const TableFile file(table);
    const auto all = tableWarnings(std::string(file.path().View()));
    ASSERT_FALSE(all.empty()) << table;
    for (const Diagnostic& finding : all) {
      const auto isOf = [&](const LintRule& rule) { return rule.key == finding.key; };
      EXPECT_TRUE(std::any_of(lintRules().begin(), lintRules().end(), isOf)) << finding.key;
    }
  }
}

}  // namespace
}  // namespace host
