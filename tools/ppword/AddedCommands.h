#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A PP command to add: the name of an NC instruction and one of its sequences.
struct AddedCommand {
  std::string name;
  int sequence = 1;
};

/// The most PP commands that are added in one change.
inline constexpr std::size_t kMostAddedCommands = 1'000'000;

/// What makes a text something other than a number from 1, for a message after what it is.
inline constexpr std::string_view kFromOne = " is a whole number from 1 to 2147483647, not '";

/// A whole number from 1; nothing for any other text.
[[nodiscard]] std::optional<int> numberFromOne(std::string_view text);

/// True for a text with a control character. A line feed would make two lines of a syntax or a
/// name, which are counted as one.
[[nodiscard]] bool hasControl(std::string_view text);

/// The commands of a list of arguments, NAME [NUMBER] for each: what begins as a number after a
/// name is its sequence. Raises a UsageError for a number that is none, one without a name before
/// it, and a control character.
[[nodiscard]] std::vector<AddedCommand> commandsOf(const std::vector<std::string>& arguments);

/// The commands of a file, "-" for the standard input, which has NAME or NAME NUMBER on each line;
/// blank lines are ignored. Raises an InputError at the first mistake, for a file without a name
/// and for one with more than kMostAddedCommands.
[[nodiscard]] std::vector<AddedCommand> commandsFrom(const std::string& path);
