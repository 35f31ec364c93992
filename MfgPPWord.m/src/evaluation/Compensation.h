#pragma once

#include <string_view>

#include "Manufacturing/KEPIMfgParameterAccess.h"
#include "System/KEPString.h"

// What the parameters of tool compensation have in common.

namespace ppword {

/// The number of a parameter; 0 when the object has no such parameter or it is no number.
[[nodiscard]] double lengthOf(const KEPMfgNamedValues& values, std::string_view name);

/// Prints a number as "%f" does in the C locale: six decimals, nothing snapped to zero. A number
/// that is not finite leaves `text` untouched.
void printLength(double number, KEPString& text);

}  // namespace ppword
