#pragma once

#include <string_view>

namespace ppword {

/// True when `line` is continued by `next` and lacks the continuation mark "$" at its end: it ends
/// in ",", or `next` begins with "," and `line` does not end in "$" yet; never before a line that
/// contains "/". Blanks at both ends are ignored. For example
///   GOTO/1,  and  2,3  become  GOTO/1,$  and  2,3
[[nodiscard]] bool needsContinuationMark(std::string_view line, std::string_view next);

}  // namespace ppword
