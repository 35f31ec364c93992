#pragma once

#include <string>
#include <string_view>

#include "inspect/diagnostics/Diagnostic.h"

namespace host {

/// A finding for people: `FILE:LINE:COL: error KEY: message`, the source line and a caret line,
/// each ended by a line feed. The source line is cut to a width that terminals hold.
[[nodiscard]] std::string diagnosticText(const Diagnostic& diagnostic);

/// `text` with everything that a terminal might obey or hide (control characters, bytes that are
/// not UTF-8, marks that turn the direction of writing) written as "\xNN".
[[nodiscard]] std::string terminalSafe(std::string_view text);

}  // namespace host
