#pragma once

#include <string>
#include <string_view>

#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// Replaces every "\%" by a marker that no pass takes for a reference.
void maskEscapedPercents(SyntaxLine& line);

/// Replaces every marker by "%": «100\%» ends as «100%».
void unmaskEscapedPercents(SyntaxLine& line);

/// A masked text as it was written, with "\%" for every marker: for whoever is told of it.
[[nodiscard]] std::string withEscapedPercents(std::string_view masked);

}  // namespace ppword
