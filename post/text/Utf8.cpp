#include "post/text/Utf8.h"

#include <algorithm>

namespace host {
namespace {

constexpr std::size_t kLongestSequence = 4;

// Length that a first byte announces; 0 for a byte that begins no character.
std::size_t announcedLength(unsigned char first) {
  if (first < 0x80) return 1;
  if (first < 0xC2) return 0;
  if (first < 0xE0) return 2;
  if (first < 0xF0) return 3;
  return first < 0xF5 ? kLongestSequence : 0;
}

bool isAllowed(char32_t point, std::size_t length) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
  return point >= kLeast[length] && point <= 0x10FFFF && !surrogate;
}

}  // namespace

char32_t codePoint(std::string_view character) {
  constexpr unsigned kPayload[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  auto point =
      static_cast<char32_t>(static_cast<unsigned char>(character[0]) & kPayload[character.size()]);
  for (const char byte : character.substr(1)) {
    point = (point << 6U) | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  return point;
}

std::size_t utf8Length(std::string_view text, std::size_t at) {
  const std::size_t length = announcedLength(static_cast<unsigned char>(text[at]));
  if (length == 0 || length > text.size() - at) return 0;
  const std::string_view character = text.substr(at, length);
  const bool continued = std::all_of(character.begin() + 1, character.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
  });
  return continued && isAllowed(codePoint(character), length) ? length : 0;
}

bool isUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = utf8Length(text, at);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

}  // namespace host
