#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace host {

/// Lines that differ, in the old and in the new list. One of the ranges may be empty: the lines are
/// then only in the other list.
struct LineHunk {
  /// The lines from `begin` to before `end`, counted from 0.
  struct Range {
    std::size_t begin;
    std::size_t end;
  };

  Range before;
  /// Between the same unchanged lines as `before`.
  Range after;
};

/// Where two lists of lines differ, in their order; nothing for equal lists. The lines between the
/// hunks are the same, and there are as many of them as possible. If finding these takes too long,
/// the first and the last differing lines, with everything between them, are one hunk: the effort
/// is in proportion to the number of lines.
[[nodiscard]] std::vector<LineHunk> lineHunks(const std::vector<std::string_view>& before,
                                              const std::vector<std::string_view>& after);

}  // namespace host
