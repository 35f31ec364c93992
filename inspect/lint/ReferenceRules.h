#pragma once

#include "inspect/lint/LineRules.h"
#include "inspect/lint/LintParameters.h"

namespace host {

/// Warns of references to unknown parameters.
void lintParameters(const LineReading& reading, const LintParameters& parameters,
                    LineReport& report);

/// Warns of a line that can be put out wider than 72 columns.
void lintWidth(const LineReading& reading, const LintParameters& parameters, LineReport& report);

}  // namespace host
