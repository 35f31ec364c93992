#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tools/ppword/Commands.h"

/// An option that says how a listing is read and written. A job states all of it itself.
struct ReadingOption {
  /// Without the "--".
  std::string_view name;
  /// What the help shows as its value, and of the option.
  std::string_view value;
  std::string_view help;
  /// Takes a value; a text that is refused leaves the reason.
  void (*take)(std::string_view text, ToolPathOptions& options, std::string& reason);
};

[[nodiscard]] std::span<const ReadingOption> readingOptions();

/// Sets an option to a value. Returns why it cannot be set; empty when it is.
[[nodiscard]] std::string setReading(std::string_view name, std::string_view text,
                                     ToolPathOptions& options);

/// "--units, --rotary and --chord": all of them, for messages.
[[nodiscard]] std::string readingNames();
