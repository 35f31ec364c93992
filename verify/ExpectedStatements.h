#pragma once

#include <cstddef>
#include <vector>

#include "verify/ExpectedStatement.h"
#include "verify/InputValues.h"
#include "verify/TableLines.h"

namespace verify {

/// The statements that the lines of one instruction print with the values of an input. They refer
/// to the lines, the values and the words, and their memory is used again.
class ExpectedStatements {
 public:
  /// Sets the statements to what the values are now. Lines, values, words and consumer are the same
  /// objects each time; only the values may have changed.
  void set(const InstructionLines& lines, const InputValues& values, const DocumentWords& words,
           const host::Consumer& consumer);

  [[nodiscard]] const ExpectedStatement* begin() const { return all_.data(); }
  [[nodiscard]] const ExpectedStatement* end() const { return all_.data() + count_; }

 private:
  /// A number of a statement that is the value of a reference, and where that value is if it is a
  /// coordinate.
  struct Number {
    ExpectedStatement::Part* part;
    const double* coordinate;
  };

  [[nodiscard]] bool renew(const InputValues& values);
  void build(const InstructionLines& lines, const InputValues& values, const DocumentWords& words);
  void finish(const InputValues& values, const host::Consumer& consumer);
  ExpectedStatement& add();
  void addLine(const TableLine& line, bool isJoined, const InputValues& values,
               const DocumentWords& words);

  /// The first `count_` are those of the instruction.
  std::vector<ExpectedStatement> all_;
  std::size_t count_ = 0;
  /// False before the first use, and where more than numbers can change when the instruction is
  /// used again.
  bool isRenewable_ = false;
  std::vector<Number> numbers_;
  /// The last character of the last line.
  char last_ = '\0';
};

}  // namespace verify
