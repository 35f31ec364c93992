#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The columns that reports for people fit into.
inline constexpr std::size_t kScreenColumns = 80;

/// A text in lines of at most `first` and then `next` columns. It is broken at blanks, but not
/// inside a quoted piece («like this»); a longer word has a line of its own.
[[nodiscard]] std::vector<std::string> foldedLines(std::string_view text, std::size_t first,
                                                   std::size_t next);

/// The columns of a text, one for each character of UTF-8 and for each byte of none.
[[nodiscard]] std::size_t columnsOf(std::string_view text);

}  // namespace host
