#pragma once

#include "language/syntax/LineObserver.h"
#include "language/syntax/ParameterSource.h"
#include "language/syntax/References.h"
#include "language/syntax/Signs.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// The line that is being processed, the signs that are masked in it and its references. Its
/// buffers are reused for every line.
struct LineScratch {
  SyntaxLine line;
  SignRecords signs;
  References words{kWordPrefix};
  References expressions{kExpressionPrefix};
  References numbers{kNumberPrefix};
};

/// Takes the line that `scratch` was started with through all passes, in their order; parentheses
/// are cleaned only when `cleansParentheses`. `observer` (may be null) receives the line after each
/// pass. False when the line cannot be processed. For example
///   GOTO/%A+10,0  with A = 5  becomes  GOTO/   15.000000,0
[[nodiscard]] bool instantiateLine(LineScratch& scratch, bool cleansParentheses,
                                   ParameterSource& parameters, LineObserver* observer);

}  // namespace ppword
