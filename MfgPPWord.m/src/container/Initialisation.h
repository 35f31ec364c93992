#pragma once

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "System/KEPResult.h"

namespace ppword {

/// Publishes the attributes of a container's members where that is due, then makes the default
/// catalogue; statuses as those of KEPIMfgPPWordContainer::Initialize. Host errors are passed on.
[[nodiscard]] HRESULT initialise(const KEPIContainer_var& container, bool skipAttributeUpgrade);

}  // namespace ppword
