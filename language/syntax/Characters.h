#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ppword {

/// True for every byte but the continuation bytes of UTF-8.
[[nodiscard]] constexpr bool startsCharacter(char byte) noexcept {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

/// The text without the spaces at both ends.
[[nodiscard]] constexpr std::string_view withoutBlanks(std::string_view text) noexcept {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Which of the characters that mean something in a syntax a text holds, found in one scan.
class CharacterSet {
 public:
  explicit constexpr CharacterSet(std::string_view text) noexcept {
#pragma GCC unroll 8
    for (const char character : text) bits_ |= kBits[static_cast<unsigned char>(character)];
  }

  /// True when one of these characters occurs in the text.
  [[nodiscard]] constexpr bool holdsAny(CharacterSet others) const noexcept {
    return (bits_ & others.bits_) != 0;
  }

 private:
  using Bits = std::uint32_t;
  static constexpr std::string_view kCharacters = "%&()\\+-*/=,$ \n\"@";

  static constexpr auto kBits = [] {
    std::array<Bits, 256> bits{};
    for (std::size_t i = 0; i < kCharacters.size(); ++i) {
      bits[static_cast<unsigned char>(kCharacters[i])] = Bits{1} << i;
    }
    return bits;
  }();

  Bits bits_ = 0;
};

/// Characters that mean the same to a pass. Whether a character is one of them is a look into a
/// table.
class CharacterTable {
 public:
  explicit constexpr CharacterTable(std::string_view characters) noexcept {
    for (const char character : characters) holds_[static_cast<unsigned char>(character)] = true;
  }

  [[nodiscard]] constexpr bool holds(char character) const noexcept {
    return holds_[static_cast<unsigned char>(character)];
  }

  /// Position of the first of these characters in `text` from `from` on, which is at most its size;
  /// the size when there is none.
  [[nodiscard]] constexpr std::size_t firstIn(std::string_view text,
                                              std::size_t from = 0) const noexcept {
    return placeIn(text, from, true);
  }

  /// As firstIn, for the first character that is none of these.
  [[nodiscard]] constexpr std::size_t firstOtherIn(std::string_view text,
                                                   std::size_t from = 0) const noexcept {
    return placeIn(text, from, false);
  }

  /// Size of the beginning of `text` that ends with the last of these characters; 0 when there is
  /// none.
  [[nodiscard]] constexpr std::size_t throughLastIn(std::string_view text) const noexcept {
    std::size_t size = text.size();
    while (size > 0 && !holds(text[size - 1])) --size;
    return size;
  }

 private:
  [[nodiscard]] constexpr std::size_t placeIn(std::string_view text, std::size_t from,
                                              bool held) const noexcept {
    const auto found = std::find_if(text.data() + from, text.data() + text.size(),
                                    [&](char character) { return holds(character) == held; });
    return static_cast<std::size_t>(found - text.data());
  }

  std::array<bool, 256> holds_{};
};

}  // namespace ppword
