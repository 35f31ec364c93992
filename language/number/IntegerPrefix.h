#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace ppword {

/// The integer that `text` begins with, read as the conversion "%d" reads it: white space of the C
/// locale, a sign, decimal digits; whatever follows is ignored. A value beyond 32 bits becomes the
/// nearest one that fits. Nothing when there is no digit there.
[[nodiscard]] inline std::optional<int> integerPrefix(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  if (text.empty() || text.front() < '0' || text.front() > '9') return std::nullopt;

  using Limits = std::numeric_limits<int>;
  std::int64_t magnitude = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), magnitude);
  if (read.ec != std::errc{}) magnitude = std::numeric_limits<std::int64_t>::max();
  const std::int64_t value = negative ? -magnitude : magnitude;
  return static_cast<int>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

}  // namespace ppword
