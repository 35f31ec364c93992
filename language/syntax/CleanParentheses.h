#pragma once

#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// Takes the parentheses out of a line that holds a "+", "-" or "*", except a "(" at its very
/// start and the groups that "%(" opens. Parentheses are not paired: a "(" goes with the first ")"
/// after it that closes no "%(" group. For example
///   X=((A+B)+D)  becomes  X=(A+B+D)
void cleanParentheses(SyntaxLine& line);

}  // namespace ppword
