#pragma once

#include "inspect/lint/LineReading.h"

namespace host {

/// Finds the references of a line whose divisions are known, in the order of the line.
void readReferences(LineReading& reading);

}  // namespace host
