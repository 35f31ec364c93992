#pragma once

#include <cstddef>
#include <string_view>

#include "verify/Rules.h"
#include "verify/Statement.h"

namespace verify {

// The grammar of a line, which is not a text:
//
//   line     token..., blanks and tabs between them; then nothing, $ or $$ with a comment
//   token    mark, number or word
//   mark     one of , / ( ) =
//   number   sign, digits, one point, digits, E with an exponent; digits somewhere
//   word     everything else up to a blank, a mark or a $
//
// A $ continues the statement on the next line.

/// How a line of a statement ends.
enum class LineEnd { Statement, Continued };

/// The bytes and the tokens that a statement has at most.
inline constexpr std::size_t kLongestStatement = std::size_t{1} << 20U;
inline constexpr std::size_t kMostTokens = 100'000;

/// Adds a line, which is not a text, to a statement: its tokens and its bytes. Reports what is
/// wrong in it. What would be beyond the limits is left out, and reported once.
[[nodiscard]] LineEnd addLine(std::string_view line, long number, Statement& statement,
                              const FindingSink& report);

/// Reports characters that are not printable ASCII, the first of each kind, and columns beyond 72.
void checkCharacters(std::string_view line, long number, bool isText, const FindingSink& report);

}  // namespace verify
