#pragma once

#include <string_view>
#include <vector>

#include "inspect/lint/LineReading.h"

namespace host {

/// A word that a line prints as it is written: letters, digits and "_", the first one no digit.
struct LineWord {
  std::string_view text;
  /// Where it begins in the reading's text.
  std::size_t at;

  [[nodiscard]] std::size_t end() const noexcept { return at + text.size(); }
};

/// The words of a line from left to right, without those that touch a reference, since they are
/// printed in one piece with its value. Of a comment none; of another line with text its first
/// word. They are valid as long as the line.
[[nodiscard]] std::vector<LineWord> wordsOf(const LineReading& reading);

/// True for a character of a word.
[[nodiscard]] constexpr bool isWordCharacter(char character) noexcept {
  const auto byte = static_cast<unsigned char>(character);
  return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= 'a' && byte <= 'z') || byte == '_' || byte >= 0x80U;
}

}  // namespace host
