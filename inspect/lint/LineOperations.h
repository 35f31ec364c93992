#pragma once

#include "inspect/lint/LineReading.h"

namespace host {

/// Finds the operators of a line whose references are known.
void readOperations(LineReading& reading);

}  // namespace host
