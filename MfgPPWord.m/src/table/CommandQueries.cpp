#include "src/table/CommandQueries.h"

#include <array>

namespace ppword {
namespace {

constexpr std::array<std::string_view, 2> kCommandKeywords = {"*START_NC_COMMAND",
                                                              "*START_NC_INSTRUCTION"};
constexpr std::string_view kCommandPrefix = "NC_";

// Calls `visit` with each name that follows a command keyword and begins with the prefix, until
// it gives true. False when it never does.
template <class Visit>
bool anyCommand(TableSource& source, Visit visit) {
  for (const std::string_view keyword : kCommandKeywords) {
    if (!source.rewind()) return false;
    while (findToken(source, keyword)) {
      const auto name = source.nextToken();
      if (name && name->starts_with(kCommandPrefix) && visit(*name)) return true;
    }
  }
  return false;
}

enum class SequenceStop { Wanted, CommandEnd, EndOfFile };

// Reads on from a command body to the start of the sequence `wanted` or to the "*END" that closes
// the command. `starts` becomes the number of sequences that began.
SequenceStop scanSequences(TableSource& source, int wanted, int& starts) {
  int ends = 0;
  starts = 0;
  while (const auto token = nextPlainToken(source)) {
    if (contains(*token, "*START_SEQUENCE") && ++starts == wanted) return SequenceStop::Wanted;
    // deliberate: the end of a nested list counts although its start does not
    if (contains(*token, "*END") && ++ends > starts) return SequenceStop::CommandEnd;
  }
  return SequenceStop::EndOfFile;
}

}  // namespace

bool numberOfCommands(TableSource& source, int& count) {
  count = 0;
  for (const std::string_view keyword : kCommandKeywords) {
    if (!source.rewind()) return false;
    while (findToken(source, keyword)) ++count;
  }
  return !source.tooLong();
}

bool nameOfCommand(TableSource& source, int index, KEPString& name) {
  int counter = 0;
  for (const std::string_view keyword : kCommandKeywords) {
    if (!source.rewind()) return false;
    if (nameAtIndex(source, keyword, kCommandPrefix, index, counter, name)) return true;
  }
  return false;
}

// deliberate: only names with the prefix count, while nameOfCommand counts every keyword
bool rangeOfCommand(TableSource& source, std::string_view name, int& range) {
  range = 0;
  return anyCommand(source, [&](std::string_view found) {
    ++range;
    return found == name;
  });
}

bool numberOfSequences(TableSource& source, int& count) {
  constexpr int kNone = 0;
  int starts = 0;
  if (scanSequences(source, kNone, starts) != SequenceStop::CommandEnd) return false;
  count = starts;
  return true;
}

bool findSequence(TableSource& source, int index) {
  int starts = 0;
  return scanSequences(source, index, starts) == SequenceStop::Wanted;
}

std::unordered_map<std::string, long> commandPositions(TableSource& source) {
  std::unordered_map<std::string, long> positions;
  anyCommand(source, [&](std::string_view name) {
    positions.try_emplace(std::string(name), source.position());
    return false;
  });
  return positions;
}

}  // namespace ppword
