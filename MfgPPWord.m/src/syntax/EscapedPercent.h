#pragma once

#include <string>

namespace ppword {

/// Replaces every "\%" by a marker that no pass takes for a reference.
void maskEscapedPercents(std::string& line);

/// Replaces every marker by "%": «100\%» ends as «100%».
void unmaskEscapedPercents(std::string& line);

}  // namespace ppword
