#pragma once

#include "tools/ppword/ExitStatus.h"
#include "tools/ppword/Options.h"

/// Shows the PP words of a table with their kinds and codes.
[[nodiscard]] ExitStatus showWords(const WordsOptions& options);

/// Tells the kinds and codes of words, and the words of codes. What a table does not hold is an
/// error each.
[[nodiscard]] ExitStatus showCodes(const CodeOptions& options);
[[nodiscard]] ExitStatus showWordsOfCodes(const WordOptions& options);
