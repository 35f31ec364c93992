#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tools/ppword/Commands.h"

/// What an option is for. A job takes none: it states all of it itself.
enum class ReadingScope { ListingsAndPrograms, Programs };

/// An option that says how a listing or an NC program is read and written.
struct ReadingOption {
  ReadingScope scope;
  /// Without the "--".
  std::string_view name;
  /// What the help shows as its value, empty for an option without one; and of the option.
  std::string_view value;
  std::string_view help;
  /// Takes a value; a text that is refused leaves the reason.
  void (*take)(std::string_view text, ToolPathOptions& options, std::string& reason);
};

[[nodiscard]] std::span<const ReadingOption> readingOptions();

/// Sets an option to a value. Returns why it cannot be set; empty when it is.
[[nodiscard]] std::string setReading(std::string_view name, std::string_view text,
                                     ToolPathOptions& options);

/// "--units, --rotary and --chord": all of a scope, for messages.
[[nodiscard]] std::string readingNames(ReadingScope scope);

/// True when an option of a scope was named.
[[nodiscard]] bool names(const ToolPathOptions& options, ReadingScope scope);
