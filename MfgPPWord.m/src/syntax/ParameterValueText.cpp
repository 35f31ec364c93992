#include "src/syntax/ParameterValueText.h"

#include <string_view>
#include <utility>

#include "src/number/NumberFormat.h"

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

std::optional<std::string> numberText(const KEPMfgParameterValue& value, std::string_view format) {
  if (value.kind == KEPMfgParameterValue::kInteger) return std::to_string(value.integer);
  std::string text;
  const bool isPrinted =
      value.kind == KEPMfgParameterValue::kReal && printNumber(format, value.real, text);
  return isPrinted ? std::optional(std::move(text)) : std::nullopt;
}

}  // namespace

std::optional<std::string> defaultText(const KEPMfgParameterValue& value) {
  if (value.kind != KEPMfgParameterValue::kText) return numberText(value, kDefaultFormat);
  const std::string_view text = firstCharacters(value.text.View(), kLongestText);
  return std::string(wholeCharacters(text, kLongestText));
}

std::optional<std::string> formattedText(const KEPMfgParameterValue& value,
                                         const std::optional<KEPUnicodeString>& format) {
  if (value.kind != KEPMfgParameterValue::kText) {
    return numberText(value, format ? format->View() : kDefaultFormat);
  }
  // deliberate: only the characters are counted here, not the bytes.
  return std::string(firstCharacters(value.text.View(), kLongestText));
}

}  // namespace ppword
