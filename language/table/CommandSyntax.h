#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "language/table/CommandQueries.h"
#include "language/table/TableSource.h"

namespace ppword {

/// The most elements that a command with inserts may have.
inline constexpr std::size_t kMostElements = 100'000;

/// The element of a text word: the word and the rest of its line, which is not empty, without the
/// last character and without the blanks at the ends. "PPRINT" and " A  B \n" are "PPRINT A  B".
[[nodiscard]] std::string textElement(std::string_view word, std::string_view rest);

/// The syntax elements of the command body in which `source` is, those of inserted commands in
/// their places, mended; the position is then after the "*END" of the body. `commandName` is the
/// command that the body belongs to. Nothing at end of file, for an insert that names no command,
/// for inserts that never end and for those that make more than
/// kMostElements.
/// `positions` are those of the table's commands; they are found when an insert asks for them
/// first. `places`, if not null, is set to the position at which each element begins in the table,
/// on success only.
[[nodiscard]] std::optional<std::vector<std::string>> readSyntax(
    TableSource& source, std::string_view commandName, std::optional<CommandPositions>& positions,
    std::vector<long>* places = nullptr);

}  // namespace ppword
