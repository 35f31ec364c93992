#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace host {

/// How many bytes of a text stand in one line: with a word of seven columns before them they end
/// before column 72.
inline constexpr std::size_t kLongestPiece = 64;

/// A text in pieces of at most 64 bytes: cut at blanks, which are dropped there, or between
/// characters where a word is longer. Blanks at the end of the text are dropped. An empty text has
/// no piece. The pieces lie in the text.
[[nodiscard]] std::vector<std::string_view> commentPieces(std::string_view text);

}  // namespace host
