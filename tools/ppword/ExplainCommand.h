#pragma once

#include "tools/ppword/ExitStatus.h"
#include "tools/ppword/Options.h"

/// Shows what every pass does with the lines of an NC instruction, or with given lines.
[[nodiscard]] ExitStatus explainSyntax(const ExplainOptions& options);
