#pragma once

#include "inspect/explain/Explanation.h"

namespace host {

/// Adds to a line's passes, in words, what a reader of the syntax might not expect: what was lost,
/// a name that is not the one meant, a sign that moved.
void addNotes(ExplainedLine& line);

}  // namespace host
