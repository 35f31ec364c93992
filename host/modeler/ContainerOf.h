#pragma once

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"

namespace host {

/// The container that holds a feature, or the container itself, not counted; null for anything else
/// and for a feature that is in no container any more.
[[nodiscard]] inline KEPIContainer* containerOf(const KEPBaseUnknown_var& object) {
  const auto* const feature = KEPBorrow<KEPISpecObject>(object.Get());
  return feature != nullptr ? feature->GetContainer() : KEPBorrow<KEPIContainer>(object.Get());
}

}  // namespace host
