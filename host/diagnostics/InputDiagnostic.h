#pragma once

#include "System/KEPPlatform.h"
#include "host/diagnostics/Diagnostic.h"
#include "host/generator/InputError.h"

namespace host {

/// The finding of a refused input, with its source line where it has a place in a regular file.
[[nodiscard]] KEP_PLATFORM Diagnostic inputDiagnostic(const InputError& error);

}  // namespace host
