#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace ppword {

/// The integer that a text begins with.
struct IntegerPrefix {
  int value;
  /// True when the text is this integer and nothing else.
  bool isWhole;
};

/// The integer that `text` begins with, read as the conversion "%d" reads it: white space of the C
/// locale, a sign, decimal digits; whatever follows is ignored. A value beyond 32 bits becomes the
/// nearest one that fits. Nothing when there is no digit.
[[nodiscard]] inline std::optional<IntegerPrefix> readInteger(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  if (text.empty() || text.front() < '0' || text.front() > '9') return std::nullopt;

  using Limits = std::numeric_limits<int>;
  std::int64_t magnitude = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, magnitude);
  if (read.ec != std::errc{}) magnitude = std::numeric_limits<std::int64_t>::max();
  const std::int64_t value = negative ? -magnitude : magnitude;
  const std::int64_t fitting = std::clamp<std::int64_t>(value, Limits::min(), Limits::max());
  return IntegerPrefix{static_cast<int>(fitting), read.ptr == end && fitting == value};
}

[[nodiscard]] inline std::optional<int> integerPrefix(std::string_view text) {
  const auto read = readInteger(text);
  if (!read) return std::nullopt;
  return read->value;
}

}  // namespace ppword
