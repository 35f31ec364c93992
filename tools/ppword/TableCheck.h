#pragma once

#include <optional>
#include <string>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/ExitStatus.h"
#include "tools/ppword/Options.h"

/// The error for which the table at `path` is refused; nothing when it passes the reader's check.
[[nodiscard]] std::optional<host::Diagnostic> tableRefusal(const std::string& path);

/// A finding on the standard error.
void tell(const host::Diagnostic& diagnostic);

/// Tells why a table is refused: a finding on the standard error, or a document on the standard
/// output.
[[nodiscard]] ExitStatus refuseTable(const host::Diagnostic& refusal, OutputFormat format);
