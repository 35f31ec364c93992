#pragma once

#include <vector>

#include "inspect/lint/TableBlocks.h"

namespace host {

/// The lines of one body as the module reads them: where one of exactly 80 bytes ends within a
/// parameter's name, what stands up to the first comma of the next one is moved up.
[[nodiscard]] std::vector<TableLine> mendCutLines(std::vector<TableLine> lines);

}  // namespace host
