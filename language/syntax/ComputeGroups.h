#pragma once

#include <string_view>

#include "language/syntax/LineObserver.h"
#include "language/syntax/ParameterSource.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// Replaces every "(" ... ")" that holds one operation by its result, before the references that
/// `prefix` opens are substituted: a side that holds the prefix is a parameter, whose name is the
/// side without its first character, any other must begin with a number. For example
///   GOTO/(%I/%J) with the integers I = 7 and J = 2 becomes GOTO/3
/// A result is an integer, cut toward zero, for two integers and for an integer with a literal;
/// any other is printed as "%12.6f". What cannot be computed stays as it is.
/// `observer` (may be null) receives the groups that hold the operator looked for.
void computeGroups(SyntaxLine& line, std::string_view prefix, ParameterSource& parameters,
                   LineObserver* observer);

}  // namespace ppword
