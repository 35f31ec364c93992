#include "language/table/CommandQueries.h"

#include <utility>

namespace ppword {
namespace {

// Visits the names that follow a command keyword and begin with the prefix.
template <class Visit>
Walk walkNames(TableSource& source, Visit visit) {
  return walkCommands(source, [&] {
    const auto name = nextName(source, kCommandPrefix);
    return name && visit(*name);
  });
}

}  // namespace

bool numberOfCommands(TableSource& source, int& count) {
  count = 0;
  const Walk walk = walkCommands(source, [&] {
    ++count;
    return false;
  });
  return walk == Walk::Whole && !source.tooLong();
}

bool nameOfCommand(TableSource& source, int index, std::string& name) {
  const auto walk = [&](auto visit) { return walkCommands(source, visit); };
  return nameAtIndex(source, walk, kCommandPrefix, index, name);
}

// deliberate: only names with the prefix count, while nameOfCommand counts every keyword
bool rangeOfCommand(TableSource& source, std::string_view name, int& range) {
  range = 0;
  const Walk walk = walkNames(source, [&](std::string_view found) {
    ++range;
    return found == name;
  });
  return walk == Walk::Stopped;
}

CommandPositions commandPositions(TableSource& source) {
  CommandPositions positions;
  walkNames(source, [&](std::string_view name) {
    positions.try_emplace(std::string(name), source.position());
    return false;
  });
  return positions;
}

bool SequenceWalk::next() {
  while (true) {
    // deliberate: the end of a nested list counts although its start does not
    if (std::exchange(endPending_, false) && ++ends_ > starts_) return false;
    const auto token = nextPlainToken(source_);
    if (!token) return false;
    endPending_ = contains(*token, kEndKeyword);
    if (!contains(*token, kSequenceKeyword)) continue;
    ++starts_;
    return true;
  }
}

bool numberOfSequences(TableSource& source, int& count) {
  SequenceWalk walk(source);
  while (walk.next()) continue;
  if (!walk.closed()) return false;
  count = walk.count();
  return true;
}

bool findSequence(TableSource& source, int index) {
  SequenceWalk walk(source);
  while (walk.next()) {
    if (walk.count() == index) return true;
  }
  return false;
}

}  // namespace ppword
