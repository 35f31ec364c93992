#pragma once

#include "tools/ppword/ExitStatus.h"
#include "tools/ppword/Options.h"

/// Shows what a table or the default catalogue holds.
[[nodiscard]] ExitStatus listTable(const ListOptions& options);
