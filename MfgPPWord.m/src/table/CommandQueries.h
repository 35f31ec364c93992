#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "System/KEPString.h"
#include "src/table/TableSource.h"

namespace ppword {

// The queries on the commands of a table. Contracts as those of the reader's operations.

[[nodiscard]] bool numberOfCommands(TableSource& source, int& count);
[[nodiscard]] bool nameOfCommand(TableSource& source, int index, KEPString& name);
[[nodiscard]] bool rangeOfCommand(TableSource& source, std::string_view name, int& range);

/// Counts the sequences from the current position to the "*END" that closes the command.
[[nodiscard]] bool numberOfSequences(TableSource& source, int& count);

/// Reads on to directly behind the "*START_SEQUENCE" of the sequence `index` of the command.
[[nodiscard]] bool findSequence(TableSource& source, int index);

/// Where the body of each command begins: the positions behind the names that rangeOfCommand
/// finds, for all names at once.
[[nodiscard]] std::unordered_map<std::string, long> commandPositions(TableSource& source);

}  // namespace ppword
