#pragma once

#include "inspect/lint/LineReading.h"

namespace host {

/// Finds the divisions of a line: those of a reference by a number become products.
void readDivisions(LineReading& reading);

}  // namespace host
