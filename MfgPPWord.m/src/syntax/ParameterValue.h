#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPString.h"

namespace ppword {

/// The typed value of a parameter for a feature of the PP word container. The name is taken without
/// the blanks around it; one that begins with "(" is an expression over the design parameters, any
/// other is a parameter of the document's current activity (the real one of a virtual
/// activity), a user's parameter before the activity's own. Nothing when it is unknown.
[[nodiscard]] std::optional<KEPMfgParameterValue> parameterValue(const KEPISpecObject_var& feature,
                                                                 std::string_view name);

/// The text of a looked-up value whose parameter type may have a print format: an integer with all
/// its digits; a real number as the format prints it, "%12.6f" without one; a text cut to 79
/// characters and, without a format, to 79 bytes at whole characters. Nothing for a value of
/// another kind, a real number that is not finite, and a format that cannot print a number.
[[nodiscard]] std::optional<std::string> valueText(const KEPMfgParameterValue& value,
                                                   const std::optional<KEPUnicodeString>& format);

}  // namespace ppword
