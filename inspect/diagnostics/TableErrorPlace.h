#pragma once

#include <string>
#include <string_view>

#include "System/KEPError.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/TableBytes.h"
#include "language/table/TableCursor.h"

namespace host {

/// A table reader's error about the table at `path`, at its place in the file. The error's
/// parameter counts the lines as the reader does; the finding has the physical line, and the column
/// that wants mending. When the starts and ends of the blocks do not balance, the place is the
/// first block that has no end, or the first end that closes nothing.
[[nodiscard]] Diagnostic tableError(const std::string& path, const KEPError& error);

/// The error of that key about a line of `table`, which is at `path`, without its source line.
[[nodiscard]] Diagnostic tableErrorAt(const std::string& path, std::string_view key,
                                      const TableBytes& table, const ppword::CountedLine& line);

}  // namespace host
