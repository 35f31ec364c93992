#include "post/consumer/Consumer.h"

#include <algorithm>

#include "post/text/Utf8.h"

namespace host {
namespace {

constexpr std::string_view kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 +-*/,.()=$'";

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool isFigure(char c) { return c >= '0' && c <= '9'; }

/// How many letters and digits begin a text.
std::size_t lengthOfWord(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size() && (isLetter(text[end]) || isFigure(text[end]))) ++end;
  return end;
}

}  // namespace

std::string sequenceText(long number) {
  std::string digits = std::to_string(number);
  if (digits.size() < kSequenceDigits) digits.insert(0, kSequenceDigits - digits.size(), '0');
  return digits;
}

std::string shownCharacter(std::string_view character) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(character[0]);
  if (character.size() > 1 || (byte > ' ' && byte < 0x7F)) {
    return '\'' + std::string(character) + '\'';
  }
  return std::string("the byte ") + kDigits[byte / 16] + kDigits[byte % 16];
}

std::string_view characterAt(std::string_view text, std::size_t at) {
  return text.substr(at, std::max<std::size_t>(utf8Length(text, at), 1));
}

std::size_t bytesOfColumns(std::string_view line, std::size_t columns) {
  std::size_t end = 0;
  for (; columns > 0 && end < line.size(); --columns) end += characterAt(line, end).size();
  return end;
}

bool takes(const Consumer& consumer, std::string_view character) {
  using enum Consumer::Characters;
  if (consumer.characters == Any) return true;
  if (character.size() != 1) return false;
  if (consumer.characters == Capitals) return kCapitals.find(character[0]) != kCapitals.npos;
  return character[0] >= ' ' && character[0] <= '~';
}

char replacementOf(std::string_view character, const Consumer& consumer) {
  const char first = character[0];
  const bool isSmall = character.size() == 1 && first >= 'a' && first <= 'z';
  return isSmall ? static_cast<char>(first - 'a' + 'A') : consumer.replacement;
}

std::string_view longWord(std::string_view line, int longest, bool isText) {
  for (std::size_t at = 0; at < line.size() && !line.substr(at).starts_with("$$");) {
    const std::size_t length = lengthOfWord(line.substr(at));
    const bool isLong = length > static_cast<std::size_t>(longest);
    if (isLong && isLetter(line[at])) return line.substr(at, length);
    if (isText) break;
    at += std::max<std::size_t>(length, 1);
  }
  return {};
}

}  // namespace host
