#pragma once

#include <string>

#include "post/generator/Tally.h"

namespace host {

/// What a generation did.
struct Summary {
  /// Name of the tool path; the lines of the tallies are lines of it.
  std::string file;
  /// Tool-path elements put out: one for each position of an element that has positions.
  long elements = 0;
  /// Lines of text put out.
  long lines = 0;
  /// NC instructions used, once for each element put out.
  Tally instructions;
  /// References that could not be evaluated, by the parameter's name.
  Tally unevaluated;
  /// References to a number whose format printed no digit of it, by the parameter's name.
  Tally withoutNumber;
  /// Lines wider than the columns of a statement, by the NC instruction.
  Tally wide;
  /// Ends of parameter names that were cut off, by the name with its end.
  Tally dropped;
  /// Operations that were deleted for want of an operand, and signs whose place was gone.
  Tally deleted;
};

}  // namespace host
