#pragma once

#include <string_view>

namespace ppword {

/// The text without the spaces at both ends.
[[nodiscard]] constexpr std::string_view withoutBlanks(std::string_view text) noexcept {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace ppword
