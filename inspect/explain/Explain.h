#pragma once

#include "KEPIMfgSyntaxEvaluation.h"
#include "inspect/explain/Explanation.h"

namespace host {

/// Instantiates a sequence (from 1) of an NC instruction, as its document is now, and tells what
/// every pass did with its lines. Listens to the module meanwhile.
[[nodiscard]] Explanation explain(KEPIMfgSyntaxEvaluation& instruction, int sequence);

}  // namespace host
