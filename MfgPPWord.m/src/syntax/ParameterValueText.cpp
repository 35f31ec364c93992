#include "src/syntax/ParameterValueText.h"

#include <string_view>
#include <utility>

#include "language/number/NumberFormat.h"

namespace ppword {
namespace {

constexpr std::size_t kLongestText = 79;
constexpr std::string_view kDefaultFormat = "%12.6f";

/// The first `count` characters of a text.
std::string_view firstCharacters(std::string_view text, std::size_t count) {
  std::size_t seen = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (KEPUnicodeString::StartsCharacter(text[i]) && seen++ == count) return text.substr(0, i);
  }
  return text;
}

/// The longest beginning of at most `count` bytes that ends with a whole character.
std::string_view wholeCharacters(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text;
  std::size_t end = count;
  while (end > 0 && !KEPUnicodeString::StartsCharacter(text[end])) --end;
  return text.substr(0, end);
}

std::optional<std::string> realText(double value, std::string_view format) {
  std::string text;
  return printNumber(format, value, text) ? std::optional(std::move(text)) : std::nullopt;
}

}  // namespace

std::optional<std::string> valueText(const KEPMfgParameterValue& value,
                                     const std::optional<KEPUnicodeString>& format) {
  switch (value.kind) {
    case KEPMfgParameterValue::kInteger:
      return std::to_string(value.integer);
    case KEPMfgParameterValue::kReal:
      return realText(value.real, format ? format->View() : kDefaultFormat);
    case KEPMfgParameterValue::kText:
      // deliberate: with a format only the characters are counted, not the bytes.
      return std::string(format ? firstCharacters(value.text, kLongestText)
                                : wholeCharacters(value.text, kLongestText));
    default:
      return std::nullopt;
  }
}

}  // namespace ppword
