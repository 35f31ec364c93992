#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "inspect/diagnostics/TableBytes.h"

namespace host {

/// One thing that two tables mean differently.
struct TableChange {
  /// The groups, in the order of the changes.
  enum class Section { Words, Codes, Syntaxes, Formats, Lists, Instructions };
  /// What differs: a whole entry, a code or kind of a word, the word that is found for a code, the
  /// text of a format or list, a sequence, a line, the lines of an inserted command, or all of a
  /// section, or lines, that only one of the tables can have read.
  enum class What { Entry, Code, Kind, Word, Text, Sequence, Line, Insert, Reading };
  struct Side {
    TableBytes::Place place;
    /// Nothing for a side that has no such text, or whose text cannot be read.
    std::optional<std::string> text;
    /// Of a word, from 1; otherwise 0.
    int kind = 0;
  };

  Section section;
  What what;
  /// Empty for a section as a whole.
  std::string name;
  /// Of an instruction, from 1; otherwise 0.
  std::size_t sequence = 0;
  /// Nothing on a side that does not have it.
  std::optional<Side> before;
  std::optional<Side> after;
  /// The inserted command that changed; its changed line is what `before` and `after` place.
  std::string through;
};

/// What two tables mean differently, in the order of the sections and then of the old table, what
/// is only in the new one after it. Empty for tables that mean the same: the order of blocks, how
/// tokens are spread over lines, text outside of blocks and lines that came from inserts are no
/// difference. The effort grows with the size of the tables.
[[nodiscard]] std::vector<TableChange> tableChanges(const TableBytes& before,
                                                    const TableBytes& after);

}  // namespace host
