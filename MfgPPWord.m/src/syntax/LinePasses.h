#pragma once

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "src/syntax/ParameterSource.h"
#include "src/syntax/PassedLine.h"
#include "src/syntax/References.h"
#include "src/syntax/arithmetic/Signs.h"

namespace ppword {

/// The line that is being processed, the signs that are masked in it and its references.
struct LineRoom {
  PassedLine line;
  SignRecords signs;
  References words{kWordPrefix};
  References expressions{kExpressionPrefix};
  References numbers{kNumberPrefix};
};

/// Takes the line that `room` was started with through all passes, in their order, and tells
/// `listener` (null: nobody) the line after each. False when it cannot be processed. For example
///   GOTO/%A+10,0  with A = 5  becomes  GOTO/   15.000000,0
[[nodiscard]] bool instantiateLine(LineRoom& room, ParameterSource& parameters,
                                   KEPMfgPPWordListener* listener);

}  // namespace ppword
