#pragma once

#include <string>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/TableBytes.h"

namespace host {

/// What the table reader's check does not see in the table at `path`, in the order of the file:
///   no-section       the table holds no block at all
///   long-token       a word that is too long to be read
///   endless-insert   a command whose inserts never end, or make too many lines
///   unusable-format  a format that prints no number, or none at all
///   more-warnings    how many there are beyond the first 50
[[nodiscard]] std::vector<Diagnostic> tableWarnings(const std::string& path);

/// The same of `table`, which is at `path`, however many they are, and without their source lines.
[[nodiscard]] std::vector<Diagnostic> allTableWarnings(const TableBytes& table,
                                                       const std::string& path);

}  // namespace host
