#pragma once

#include "inspect/lint/LintFindings.h"
#include "inspect/lint/TableBlocks.h"

namespace host {

/// Finds every mistake of the keyword lines: those that the table reader's check refuses, with its
/// keys, and sections that do not nest.
void lintKeywordLines(const TableBytes& bytes, LintFindings& findings);

/// Warns of words and codes that do not pair off or are there twice.
void lintWords(const TableBlocks& blocks, LintFindings& findings);

/// Warns of names that are not read, that are there twice, or that are inserted and not there.
void lintBlocks(const TableBlocks& blocks, LintFindings& findings);

}  // namespace host
