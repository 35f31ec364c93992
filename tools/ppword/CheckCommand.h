#pragma once

#include "tools/ppword/ExitStatus.h"
#include "tools/ppword/Options.h"

/// Tells for each table whether it passes, with its errors and warnings.
[[nodiscard]] ExitStatus checkTables(const CheckOptions& options);
