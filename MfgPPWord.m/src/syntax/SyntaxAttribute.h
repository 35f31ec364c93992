#pragma once

#include <optional>

#include "ObjectSpecsModeler/KEPISpecObject.h"

namespace ppword {

/// The attribute of a feature at a position from 1, the modeler's bookkeeping attributes not
/// counted. Nothing when the position is outside.
[[nodiscard]] std::optional<KEPISpecAttribute> syntaxAttribute(const KEPISpecObject_var& feature,
                                                               int position);

/// How many attributes a feature has, the modeler's bookkeeping attributes not counted.
[[nodiscard]] int syntaxAttributeCount(const KEPISpecObject_var& feature);

}  // namespace ppword
