#pragma once

#include "inspect/lint/LintFindings.h"
#include "inspect/lint/TableBlocks.h"

namespace host {

/// Warns of words and codes that do not pair off or stand twice.
void lintWords(const TableBlocks& blocks, LintFindings& findings);

/// Warns of names that are not read, stand twice or are inserted without being there.
void lintBlocks(const TableBlocks& blocks, LintFindings& findings);

}  // namespace host
