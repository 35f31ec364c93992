#pragma once

#include "tools/ppword/ExitStatus.h"
#include "tools/ppword/Options.h"

/// Makes, changes or shows a document file, each in one transaction.
[[nodiscard]] ExitStatus runDocument(const DocumentOptions& options);
