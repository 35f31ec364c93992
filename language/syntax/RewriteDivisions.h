#pragma once

#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// Turns the division of something that holds a "%" by a literal number into a product with the
/// reciprocal, written as "%g" writes it. The first "/" of a line ends its major word and divides
/// nothing; a divisor of at most 1.0e-5 is left alone. For example
///   GOTO/%A/4  becomes  GOTO/%A*0.25
void rewriteDivisions(SyntaxLine& line);

}  // namespace ppword
