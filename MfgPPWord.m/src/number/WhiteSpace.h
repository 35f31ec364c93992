#pragma once

#include <algorithm>
#include <string_view>

namespace ppword {

/// The white space of the C locale.
inline constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

[[nodiscard]] inline std::string_view withoutLeadingWhiteSpace(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
  return text;
}

}  // namespace ppword
