#pragma once

#include <string>
#include <string_view>

namespace host {

/// A part of a source line: what is at `firstColumn` (from 1) and after it.
struct Excerpt {
  std::string text;
  long firstColumn = 1;
  /// True when the line goes on after the excerpt.
  bool goesOn = false;
};

/// How far an excerpt reaches before and after its column.
inline constexpr long kExcerptReach = 400;

/// The part of `line` around a column, which may be one after its end.
[[nodiscard]] Excerpt excerptOf(std::string_view line, long column);

}  // namespace host
