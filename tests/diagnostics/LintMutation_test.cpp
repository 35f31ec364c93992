// Random and damaged tables: the lint refuses those that the check refuses, and its places are in
// the table.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "inspect/lint/Lint.h"
#include "tests/support/Mutator.h"
#include "tests/table/TableFiles.h"
#include "tests/table/TableMaker.h"

namespace host {
namespace {

void expectFindings(const std::string& table) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader{file.path()};
  const auto findings = lintTable(std::string(file.path().View()));
  const bool isRefused = std::any_of(findings.begin(), findings.end(), [](const auto& finding) {
    return finding.severity == Severity::Error;
  });
  EXPECT_EQ(isRefused, KEPFailed(reader.CheckFileSyntax())) << table;
  const long lines = 1 + std::count(table.begin(), table.end(), '\n');
  for (const Diagnostic& finding : findings) {
    EXPECT_LE(finding.line, lines) << finding.key << '\n' << table;
    EXPECT_FALSE(finding.message.empty()) << finding.key;
  }
}

TEST(LintMutation, DamagedTablesAreRefusedAsByTheCheck) {
  std::ifstream file(PPWORD_SOURCE_DIR "/examples/mill.pptable");
  const std::string table{std::istreambuf_iterator<char>(file), {}};
  ASSERT_FALSE(table.empty());
  const unsigned seed = chosenSeed();
  std::cout << "seed " << seed << " (PPWORD_TEST_SEED repeats it)\n";
  Mutator mutator(seed, "%&(),/+-*$\\ \r\nAN_019");
  for (int i = 0; i < 100; ++i) expectFindings(mutator.mutate(table));
}

TEST(LintMutation, TablesOfAnyPiecesAreRefusedAsByTheCheck) {
  const unsigned seed = chosenSeed();
  std::cout << "seed " << seed << " (PPWORD_TEST_SEED repeats it)\n";
  TableMaker tables(seed);
  for (int i = 0; i < 300; ++i) expectFindings(tables.table());
}

}  // namespace
}  // namespace host
