#pragma once

#include <charconv>
#include <string>
#include <string_view>

#include "post/toolpath/ToolPath.h"

namespace host {

/// A feed rate or a spindle speed as the motion buffers take it, with the shortest text that gives
/// the number back.
[[nodiscard]] inline TypedValue typedNumber(double value, std::string_view type) {
  char text[64];
  const auto [end, error] = std::to_chars(text, text + sizeof text, value);
  return {{text, end}, std::string(type)};
}

}  // namespace host
