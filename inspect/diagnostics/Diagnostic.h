#pragma once

#include <string>

#include "inspect/diagnostics/Excerpt.h"

namespace host {

enum class Severity { Error, Warning };

/// A finding about an input file. Line and column count from 1, the column in bytes; 0 where the
/// finding has no such place.
struct Diagnostic {
  Severity severity = Severity::Error;
  std::string file;
  long line = 0;
  long column = 0;
  /// How many bytes from `column` on the finding is about; at least 1.
  long width = 1;
  /// The message key of an error ("ERR_5004"), the name of a warning ("long-token"), or empty.
  std::string key;
  std::string message;
  /// Empty where the line is not at hand.
  Excerpt source{};

  [[nodiscard]] bool hasSource() const { return line > 0 && column > 0 && !source.text.empty(); }
};

}  // namespace host
