#pragma once

#include <string>
#include <string_view>

#include "src/syntax/PassedLine.h"

namespace ppword {

/// Replaces every "\%" by a marker that no pass takes for a reference.
void maskEscapedPercents(PassedLine& line);

/// Replaces every marker by "%": «100\%» ends as «100%».
void unmaskEscapedPercents(PassedLine& line);

/// A masked text as it was written, with "\%" for every marker: for whoever is told of it.
[[nodiscard]] std::string withEscapedPercents(std::string_view masked);

}  // namespace ppword
