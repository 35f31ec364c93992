#pragma once

#include <string_view>

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "src/syntax/ParameterSource.h"
#include "src/syntax/PassedLine.h"

namespace ppword {

/// Replaces every "(" ... ")" that holds one operation by its result, before the references that
/// `prefix` opens are substituted: a side that holds the prefix is a parameter, whose name is the
/// side without its first character, any other must begin with a number. For example
///   GOTO/(%I/%J) with the integers I = 7 and J = 2 becomes GOTO/3
/// A result is an integer, cut toward zero, for two integers and for an integer with a literal;
/// any other is printed as "%12.6f". What cannot be computed stays as it is.
/// `listener` (null: nobody) hears of the groups that hold the operator looked for.
void computeGroups(PassedLine& line, std::string_view prefix, ParameterSource& parameters,
                   KEPMfgPPWordListener* listener);

}  // namespace ppword
