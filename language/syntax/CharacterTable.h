#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace ppword {

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
