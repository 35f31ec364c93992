#include "post/toolpath/ElementPlace.h"

#include <charconv>

namespace host {
namespace {

/// Takes the number after the last colon off a text; nothing, with the text unchanged, when it has
/// none from 1.
std::optional<long> takeNumber(std::string_view& text) {
  const std::size_t colon = text.rfind(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const std::string_view digits = text.substr(colon + 1);
  long number = 0;
  const auto [rest, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool isNumber = error == std::errc() && rest == digits.data() + digits.size();
  if (!isNumber || number < 1) return std::nullopt;
  text = text.substr(0, colon);
  return number;
}

}  // namespace

std::optional<ElementPlace> readElementPlace(std::string_view text) {
  const auto last = takeNumber(text);
  if (!last) return std::nullopt;
  const auto first = takeNumber(text);
  if (text.empty()) return std::nullopt;
  if (!first) return ElementPlace{std::string(text), *last};
  return ElementPlace{std::string(text), *first, *last};
}

}  // namespace host
