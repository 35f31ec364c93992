#pragma once

#include <optional>
#include <string>

#include "inspect/diagnostics/Diagnostic.h"

namespace host {

/// Why the file at `path` cannot be read as a PP word table, as the error ERR_5009; nothing when it
/// can. Only a regular file can: a table is read several times over.
[[nodiscard]] std::optional<Diagnostic> unreadableTable(const std::string& path);

}  // namespace host
