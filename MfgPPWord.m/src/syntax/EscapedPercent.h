#pragma once

#include "src/syntax/PassedLine.h"

namespace ppword {

/// Replaces every "\%" by a marker that no pass takes for a reference.
void maskEscapedPercents(PassedLine& line);

/// Replaces every marker by "%": «100\%» ends as «100%».
void unmaskEscapedPercents(PassedLine& line);

}  // namespace ppword
