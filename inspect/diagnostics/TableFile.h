#pragma once

#include <optional>
#include <string>

#include "inspect/diagnostics/Diagnostic.h"

namespace host {

/// Why the file at `path` cannot be read as a PP word table, as the error ERR_5009; nothing when it
/// can. Only a regular file can: a table is read several times over.
[[nodiscard]] std::optional<Diagnostic> unreadableTable(const std::string& path);

/// The same error of a table that could not be read for the reason of an error number; 0 where the
/// system has reported none.
[[nodiscard]] Diagnostic unreadableTable(const std::string& path, int error);

/// A table that cannot be read, perhaps no more, although it was when the run began.
struct UnreadableTable {
  Diagnostic diagnostic;
};

}  // namespace host
