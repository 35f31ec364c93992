#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>

#include "language/table/Keywords.h"
#include "language/table/TableSource.h"

namespace ppword {

// The queries on the commands of a table. Contracts as those of the reader's operations.

/// Visits the commands in their order, as walkKeyword does; their names follow the keywords.
template <class Visit>
Walk walkCommands(TableSource& source, Visit visit) {
  for (const std::string_view keyword : {kCommandKeyword, kInstructionKeyword}) {
    const Walk walk = walkKeyword(source, keyword, visit);
    if (walk != Walk::Whole) return walk;
  }
  return Walk::Whole;
}

/// Calls `visit` with the name of each command, empty when it has none, and the position at which
/// its body begins: those of the queries by index, in one walk.
template <class Visit>
void forEachCommand(TableSource& source, Visit visit) {
  const auto walk = [&](auto each) { return walkCommands(source, each); };
  forEachName(source, walk, kCommandPrefix, visit);
}

[[nodiscard]] bool numberOfCommands(TableSource& source, int& count);
[[nodiscard]] bool nameOfCommand(TableSource& source, int index, std::string& name);
[[nodiscard]] bool rangeOfCommand(TableSource& source, std::string_view name, int& range);

/// Where the body of each command begins: the positions after the names that rangeOfCommand
/// finds, for all names at once.
using CommandPositions = std::unordered_map<std::string, long>;
[[nodiscard]] CommandPositions commandPositions(TableSource& source);

/// Reads through the body of a command from one of its sequences to the next.
class SequenceWalk {
 public:
  /// The body begins where `source` is.
  explicit SequenceWalk(TableSource& source) : source_(source) {}

  /// Reads on to directly after the next "*START_SEQUENCE". False at the "*END" that closes the
  /// command and at end of file; the walk is over then.
  bool next();
  /// The number of sequences met.
  [[nodiscard]] int count() const noexcept { return starts_; }
  /// True when the command was closed.
  [[nodiscard]] bool closed() const noexcept { return ends_ > starts_; }

 private:
  TableSource& source_;
  int starts_ = 0;
  int ends_ = 0;
  bool endPending_ = false;
};

/// Counts the sequences from the current position to the "*END" that closes the command.
[[nodiscard]] bool numberOfSequences(TableSource& source, int& count);

/// Reads on to directly after the "*START_SEQUENCE" of the sequence `index` of the command.
[[nodiscard]] bool findSequence(TableSource& source, int index);

}  // namespace ppword
