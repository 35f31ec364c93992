#pragma once

#include "ObjectSpecsModeler/KEPIContainer.h"

namespace ppword {

/// Makes every type of the default catalogue that the container lacks, and brings the few
/// instructions marked for update to their default lines. Types that are there keep what they have.
void createDefaultCatalogue(const KEPIContainer_var& container);

}  // namespace ppword
