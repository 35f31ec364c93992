#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace ppword::test {

/// A row of evaluations.txt.
struct ExpectedEvaluation {
  std::string parameter;
  std::string className;
  /// What is printed of a number of a motion buffer; empty for the other evaluations.
  std::string number;
};

[[nodiscard]] inline std::vector<ExpectedEvaluation> expectedEvaluations() {
  std::ifstream file(PPWORD_SOURCE_DIR "/tests/evaluation/evaluations.txt");
  std::vector<ExpectedEvaluation> rows;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('#')) continue;
    auto& row = rows.emplace_back();
    std::istringstream(line) >> row.parameter >> row.className >> row.number;
  }
  return rows;
}

}  // namespace ppword::test
