#pragma once

#include <optional>
#include <string_view>

#include "language/table/TableSource.h"

namespace ppword {

/// What is wrong with a table: the key of the message and the line number that goes with it.
struct TableFault {
  std::string_view key;
  std::optional<int> line;
};

/// The first fault of the table, lines counted from 1 as they are read; nothing when it is sound.
[[nodiscard]] std::optional<TableFault> faultOfTable(TableSource& source);

/// What the check sees in a line that begins with "*".
struct KeywordLine {
  enum class Kind { Start, End, Other };
  Kind kind;
  /// The key of its fault; nothing when it is sound.
  std::optional<std::string_view> fault;
};
[[nodiscard]] KeywordLine checkKeywordLine(std::string_view line);

/// The key of the fault of a line that begins with "*" and contains "*START"; nothing when it
/// begins a section.
[[nodiscard]] std::optional<std::string_view> faultOfStartLine(std::string_view line);

}  // namespace ppword
