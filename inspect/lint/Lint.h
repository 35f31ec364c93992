#pragma once

#include <string>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/TableBytes.h"

namespace host {

struct Consumer;

/// How many findings of a kind are shown each.
inline constexpr long kMostOfAKind = 1000;

/// All that is wrong with the table at `path`, or computes other than one expects, in the order of
/// the file. Errors are those for which the table reader's check refuses it, all of them; warnings
/// have the keys of lintRules() and of tableWarnings(). The module must be loaded. The effort grows
/// with the size of the table. Of a kind with more than `most` findings one more says how many
/// there are. `consumer`: what the reader of the texts takes; null when it is unknown.
[[nodiscard]] std::vector<Diagnostic> lintTable(const std::string& path, long most = kMostOfAKind,
                                                const Consumer* consumer = nullptr);
/// The same of a table in memory, whose findings name `path`.
[[nodiscard]] std::vector<Diagnostic> lintTable(const TableBytes& bytes, const std::string& path,
                                                long most = kMostOfAKind,
                                                const Consumer* consumer = nullptr);

/// The errors alone, without loading the module.
[[nodiscard]] std::vector<Diagnostic> tableErrors(const TableBytes& bytes, const std::string& path);

}  // namespace host
