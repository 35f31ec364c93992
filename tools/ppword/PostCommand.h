#pragma once

#include "tools/ppword/ExitStatus.h"
#include "tools/ppword/Options.h"

/// Writes the APT text of a tool path, and a report on the standard error.
[[nodiscard]] ExitStatus postJob(const PostOptions& options);
