#include "src/number/IntegerPrefix.h"

#include <charconv>
#include <limits>

#include "src/number/WhiteSpace.h"

namespace ppword {

std::optional<int> integerPrefix(std::string_view text) {
  text = withoutLeadingWhiteSpace(text);
  const bool negative = text.starts_with('-');
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  int value = 0;
  const auto status = std::from_chars(text.data(), text.data() + text.size(), value).ec;
  if (status == std::errc::invalid_argument) return std::nullopt;
  if (status == std::errc{}) return value;
  return negative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

}  // namespace ppword
