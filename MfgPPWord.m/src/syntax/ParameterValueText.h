#pragma once

#include <optional>
#include <string>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "System/KEPUnicodeString.h"

namespace ppword {

/// The text of a looked-up value whose parameter has no type: an integer with all its digits, a
/// real number as "%12.6f" prints it, a text cut to 79 characters and then to 79 bytes at whole
/// characters. Nothing for a value of another kind or a real number that is not finite.
[[nodiscard]] std::optional<std::string> defaultText(const KEPMfgParameterValue& value);

/// The same for a parameter whose type may have a print format: it applies to real numbers, and a
/// text is cut to 79 characters only. Nothing when the format cannot print a number.
[[nodiscard]] std::optional<std::string> formattedText(
    const KEPMfgParameterValue& value, const std::optional<KEPUnicodeString>& format);

}  // namespace ppword
