#pragma once

#include "language/syntax/LineObserver.h"
#include "language/syntax/LineScratch.h"
#include "language/syntax/ParameterSource.h"

namespace ppword {

/// Takes the line that `scratch` was started with through all passes, in their order. `observer`
/// (may be null) receives the line after each pass. False when the line cannot be processed. For
/// example
///   GOTO/%A+10,0  with A = 5  becomes  GOTO/   15.000000,0
[[nodiscard]] bool instantiateLine(LineScratch& scratch, ParameterSource& parameters,
                                   LineObserver* observer);

}  // namespace ppword
