#pragma once

#include "inspect/diagnostics/Diagnostic.h"
#include "post/toolpath/LineReader.h"

namespace host {

/// The finding of a refused input, with its source line where it has a place in a regular file.
[[nodiscard]] Diagnostic inputDiagnostic(const InputError& error);

}  // namespace host
