#pragma once

#include <string_view>

#include "src/syntax/ParameterSource.h"
#include "src/syntax/PassedLine.h"

namespace ppword {

/// What opens a reference, in the order in which a line is substituted.
inline constexpr std::string_view kWordPrefix = "&";
inline constexpr std::string_view kExpressionPrefix = "%(";
inline constexpr std::string_view kNumberPrefix = "%";

/// Replaces every reference that `prefix` opens by the text of its parameter:
///   GOTO/%A,%B with A = 1.5 and B = 2 becomes GOTO/1.5,2
/// A name ends at the first "," behind the prefix (at ")" for an expression) wherever it stands;
/// only a line without one lets the nearest blank, line feed or double quote end it. The
/// separators around a reference stay.
void substitute(PassedLine& line, std::string_view prefix, ParameterSource& parameters);

}  // namespace ppword
