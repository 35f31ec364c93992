#pragma once

#include "tools/ppword/ExitStatus.h"
#include "tools/ppword/Options.h"

/// Shows what the PPTables folders hold and which files are hidden by files of the same name.
[[nodiscard]] ExitStatus showTables(const TablesOptions& options);
