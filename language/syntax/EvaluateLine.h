#pragma once

#include "language/syntax/LineObserver.h"
#include "language/syntax/Signs.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// Works out the "+", "-" and "*" of a line strictly from left to right, without precedence. For
/// example
///   X/2+3*4  becomes  X/   20.000000
/// An operation on anything but numbers stays as it is; one that lacks an operand is deleted with
/// the operand that it has, and so is a "-" in front of what is not a number. Blanks after a "-"
/// go. A line without records, or with "$$", "PPRINT" or "*VORTA", is left as it is. `observer`
/// (may be null) receives every operation.
void evaluateLine(SyntaxLine& line, const SignRecords& records, LineObserver* observer);

}  // namespace ppword
