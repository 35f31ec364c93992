#pragma once

#include "language/syntax/ParameterSource.h"
#include "language/syntax/References.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// Replaces every reference that the prefix of `references` opens by the text of its parameter:
///   GOTO/%A,%B with A = 1.5 and B = 2 becomes GOTO/1.5,2
/// `references` is kept from line to line.
void substitute(SyntaxLine& line, References& references, ParameterSource& parameters);

}  // namespace ppword
