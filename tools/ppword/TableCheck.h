#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/diagnostics/Diagnostic.h"

/// The error for which the table at `path` is refused; nothing when it passes the reader's check.
[[nodiscard]] std::optional<host::Diagnostic> tableRefusal(const std::string& path);

/// A finding on the standard error.
void tell(const host::Diagnostic& diagnostic);
