#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "inspect/lint/LineRules.h"

namespace host {

/// Follows the statements of a table over their lines, which come in their order.
class Statements {
 public:
  explicit Statements(const TableBlocks& blocks);

  /// Warns of parentheses that do not match, of a statement that goes on and has no next line, and
  /// of a line that begins as if another one went on. Bodies that are inserted elsewhere can be
  /// parts of statements.
  void read(const TableLine& line, const LineReading& reading, LineReport& report);

 private:
  void readParentheses(const LineReading& reading, LineReport& report);
  void end(const TableLine& line, const LineReading& reading, LineReport& report);

  std::unordered_set<std::string_view> inserted_;
  /// Where the parentheses of the statement are open, in the table.
  std::vector<std::size_t> open_;
  /// True when an insert is a part of the statement.
  bool hasInsert_ = false;
};

/// Warns of characters that separate nothing in APT, and of a letter O in a number.
void lintCharacters(const LineReading& reading, LineReport& report);

}  // namespace host
