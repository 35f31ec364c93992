#pragma once

#include "ObjectSpecsModeler/KEPIContainer.h"

namespace ppword {

/// Creates every type of the default catalogue that the container lacks, and sets the few
/// instructions marked for update to their default lines. Other types that exist do not change.
void createDefaultCatalogue(const KEPIContainer_var& container);

}  // namespace ppword
