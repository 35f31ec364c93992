#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "post/listing/CanonicalCall.h"
#include "post/program/ProgramCopy.h"

namespace host {

/// The error at which rs274 stopped.
struct InterpreterError {
  std::string message;
  /// The block of the error, as it is in the copy of the program; empty where it is unknown.
  std::string block;
  /// The tool that is missing from the table.
  std::optional<int> tool{};
  /// The O-word whose definition or end is missing, with the file and the line that name it.
  std::string called;
  std::string file;
  long line = 0;
};

/// Reads what rs274 wrote to the standard error.
[[nodiscard]] InterpreterError readInterpreterError(std::string_view errors);

/// The place of the error's block in the program or in a file that it calls; the program without a
/// line where that is unknown. The place refers to the copy.
[[nodiscard]] LinePlace placeOfError(const InterpreterError& error, const ProgramCopy& copy);

}  // namespace host
