#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "language/table/CommandQueries.h"
#include "language/table/MemorySource.h"

namespace ppword {

// What a table has under a name. A name or content that cannot be read is absent; what has no name
// has no content.

struct CommandEntry {
  std::optional<std::string> name;
  std::optional<std::vector<std::string>> lines;
  std::vector<std::optional<std::vector<std::string>>> sequences;
};
struct ListEntry {
  std::optional<std::string> name;
  std::optional<std::vector<std::string>> values;
};
struct FormatEntry {
  std::optional<std::string> name;
  std::optional<std::string> format;
};

/// The most bytes that are read to list the entries of a table: more than a load reads.
[[nodiscard]] constexpr std::size_t mostBytesOfList(std::string_view table) {
  constexpr std::size_t kMostReadings = 16;  // of the whole table
  constexpr std::size_t kMostBytesBeside = std::size_t{256} * 1024 * 1024;
  return kMostReadings * table.size() + kMostBytesBeside;
}

/// Lists the entries of a table: those that the queries by index find, in their order. Each kind is
/// found in one walk, so that the cost grows with the size of the table. After `mostLines` lines
/// and values, where a sequence or list without any counts as one, and after `mostBytes` bytes no
/// more are read, nor sequences found.
class TableEntries {
 public:
  /// The bytes of the table must outlive the object.
  explicit TableEntries(std::string_view table)
      : TableEntries(table, mostBytesOfList(table), mostLinesOfLoad(table)) {}
  TableEntries(std::string_view table, std::size_t mostBytes, std::size_t mostLines)
      : table_(table), reading_(table, mostBytes), linesLeft_(mostLines) {}

  [[nodiscard]] std::vector<CommandEntry> commands();
  [[nodiscard]] std::vector<ListEntry> lists();
  [[nodiscard]] std::vector<FormatEntry> formats();

 private:
  using Lines = std::vector<std::string>;

  [[nodiscard]] CommandEntry commandAt(const std::string& name, long body);
  [[nodiscard]] std::vector<long> sequencesOf(long body);
  /// What a function reads from a position on, if it may be read.
  template <class Read>
  [[nodiscard]] std::optional<Lines> linesAt(long position, Read read);

  std::string_view table_;
  MemorySource reading_;  // reads what follows the names; each walk has its own source
  std::size_t linesLeft_;
  std::optional<CommandPositions> positions_;
};

}  // namespace ppword
