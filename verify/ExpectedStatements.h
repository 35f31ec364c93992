#pragma once

#include <cstddef>
#include <vector>

#include "verify/ExpectedStatement.h"
#include "verify/InputValues.h"
#include "verify/TableLines.h"

namespace verify {

/// The statements that the lines of an instruction print with the values of an input. They refer to
/// the lines, the values and the words, and their memory is used again.
class ExpectedStatements {
 public:
  /// Sets the statements to those of an instruction. `dropsComma`: of the only line, as of a dwell
  /// without a unit.
  void set(const std::vector<TableLine>& lines, const InputValues& values,
           const DocumentWords& words, bool dropsComma);

  [[nodiscard]] const ExpectedStatement* begin() const { return all_.data(); }
  [[nodiscard]] const ExpectedStatement* end() const { return all_.data() + count_; }

 private:
  ExpectedStatement& add();
  void addLine(const TableLine& line, bool isJoined, const InputValues& values,
               const DocumentWords& words);

  /// The first `count_` are those of the instruction.
  std::vector<ExpectedStatement> all_;
  std::size_t count_ = 0;
  /// The last character of the last line.
  char last_ = '\0';
};

}  // namespace verify
