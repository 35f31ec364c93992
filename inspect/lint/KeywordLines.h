#pragma once

#include "inspect/lint/LintFindings.h"

namespace host {

/// Finds every mistake of the keyword lines: those that the table reader's check refuses, with its
/// keys, and sections that do not nest.
void lintKeywordLines(const TableBytes& bytes, LintFindings& findings);

}  // namespace host
