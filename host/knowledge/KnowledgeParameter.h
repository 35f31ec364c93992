#pragma once

#include <string_view>

#include "Knowledge/KEPICkeParm.h"

namespace host {

/// A knowledge parameter with its value as text and the name of its type (empty: no type).
[[nodiscard]] KEP_PLATFORM KEPICkeParm_var createKnowledgeParameter(std::string_view valueText,
                                                                    std::string_view typeName);

}  // namespace host
