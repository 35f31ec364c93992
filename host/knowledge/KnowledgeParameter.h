#pragma once

#include <string>
#include <string_view>

#include "Knowledge/KEPICkeParm.h"

namespace host {

/// A feed rate or a spindle speed: value text and type name (such as "LINEARFEEDRATE").
struct TypedValue {
  std::string text;
  std::string type;
};

/// A knowledge parameter with its value as text and the name of its type (empty: no type).
[[nodiscard]] KEP_PLATFORM KEPICkeParm_var createKnowledgeParameter(std::string_view valueText,
                                                                    std::string_view typeName);

}  // namespace host
