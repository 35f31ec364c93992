#pragma once

#include <optional>
#include <string>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "System/KEPString.h"

namespace ppword {

/// The text of a looked-up value whose parameter type may have a print format: an integer with all
/// its digits; a real number as the format prints it, "%12.6f" without one; a text cut to 79
/// characters and, without a format, to 79 bytes at whole characters. Nothing for a value of
/// another kind, a real number that is not finite, and a format that cannot print a number.
[[nodiscard]] std::optional<std::string> valueText(const KEPMfgParameterValue& value,
                                                   const std::optional<KEPUnicodeString>& format);

}  // namespace ppword
