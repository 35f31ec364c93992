#pragma once

#include <string>
#include <string_view>

namespace ppword {

class LineObserver;
class ParameterSource;
class References;
class SyntaxLine;
struct SignRecords;

// The passes of a line, in their order; maskSigns comes before the groups, restoreSigns before the
// evaluation.

/// How a percent sign that opens no reference is written.
inline constexpr std::string_view kEscapedPercent = "\\%";

/// What is in its place while a line is processed: no pass takes it for a reference.
inline constexpr std::string_view kPercentMask = "@#@#@#@#";

/// Replaces every "\%" by the mask.
void maskEscapedPercents(SyntaxLine& line);

/// Takes the parentheses out of a line that holds a "+", "-" or "*", except a "(" at its very
/// start and the groups that "%(" opens. Parentheses are not paired: a "(" goes with the first ")"
/// after it that closes no "%(" group. For example
///   X=((A+B)+D)  becomes  X=(A+B+D)
void cleanParentheses(SyntaxLine& line);

/// Turns the division of something that holds a "%" by a literal number into a product with the
/// reciprocal, written as "%g" writes it. The first "/" of a line ends its major word and divides
/// nothing; a divisor of at most 1.0e-5 is left alone. For example
///   GOTO/%A/4  becomes  GOTO/%A*0.25
void rewriteDivisions(SyntaxLine& line);

/// Replaces every "(" ... ")" that holds one operation by its result, before the references that
/// `prefix` opens are substituted: a side that holds the prefix is a parameter, whose name is the
/// side without its first character, any other must begin with a number. For example
///   GOTO/(%I/%J) with the integers I = 7 and J = 2 becomes GOTO/3
/// A result is an integer, cut toward zero, for two integers and for an integer with a literal;
/// any other is printed as "%12.6f". What cannot be computed stays as it is.
/// `observer` (may be null) receives the groups that hold the operator looked for.
void computeGroups(SyntaxLine& line, std::string_view prefix, ParameterSource& parameters,
                   LineObserver* observer);

/// False for a line in which that pass finds nothing, whatever the prefix.
[[nodiscard]] bool holdsGroups(SyntaxLine& line);

/// Replaces every reference that the prefix of `references` opens by the text of its parameter:
///   GOTO/%A,%B with A = 1.5 and B = 2 becomes GOTO/1.5,2
/// `references` is kept from line to line.
void substitute(SyntaxLine& line, References& references, ParameterSource& parameters);

/// Works out the "+", "-" and "*" of a line strictly from left to right, without precedence. For
/// example
///   X/2+3*4  becomes  X/   20.000000
/// An operation on anything but numbers stays as it is; one that lacks an operand is deleted with
/// the operand that it has, and so is a "-" in front of what is not a number. Blanks after a "-"
/// go. A line without records, or with "$$", "PPRINT" or "*VORTA", is left as it is. `observer`
/// (may be null) receives every operation.
void evaluateLine(SyntaxLine& line, const SignRecords& records, LineObserver* observer);

/// Replaces every mask by "%": «100\%» ends as «100%».
void unmaskEscapedPercents(SyntaxLine& line);

/// A text of a line that is being processed, with "\%" for every mask as it was written.
[[nodiscard]] std::string withEscapedPercents(std::string_view masked);

/// The reverse: a text as it is while its line is processed.
[[nodiscard]] std::string withMaskedPercents(std::string_view written);

}  // namespace ppword
