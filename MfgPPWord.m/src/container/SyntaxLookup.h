#pragma once

#include <string_view>

#include "KEPIMfgSyntaxEvaluation.h"
#include "ObjectSpecsModeler/KEPIContainer.h"

namespace ppword {

/// The syntax evaluation of an NC instruction, told the number of the sequential motion that a
/// marker in the name gives (-1 without one); null, or the null-handle error, as
/// KEPIMfgPPWordContainer::GetSyntaxEvaluation says.
[[nodiscard]] KEPIMfgSyntaxEvaluation_var findSyntaxEvaluation(const KEPIContainer_var& container,
                                                               std::string_view name);

}  // namespace ppword
