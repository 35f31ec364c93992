#pragma once

#include <optional>
#include <string_view>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"

namespace ppword {

/// The typed value of a parameter for a feature of the PP word container. The name is taken without
/// the blanks around it; one that begins with "(" is an expression over the design parameters, any
/// other is a parameter of the document's current activity (the real one of a virtual
/// activity), a user's parameter before the activity's own. Nothing when it is unknown.
[[nodiscard]] std::optional<KEPMfgParameterValue> parameterValue(const KEPISpecObject_var& feature,
                                                                 std::string_view name);

}  // namespace ppword
