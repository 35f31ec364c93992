#pragma once

#include <cstdint>
#include <string_view>

namespace ppword {

/// Which characters a text may hold, found in one scan: what the set denies does not occur. A few
/// characters share a bit, so what it affirms still has to be looked for.
class CharacterSet {
 public:
  explicit constexpr CharacterSet(std::string_view text) noexcept {
    for (const char character : text) bits_ |= bitOf(character);
  }

  /// False only when none of these characters occurs in the text.
  [[nodiscard]] constexpr bool mayHoldAny(CharacterSet other) const noexcept {
    return (bits_ & other.bits_) != 0;
  }

 private:
  static constexpr std::uint64_t bitOf(char character) noexcept {
    return std::uint64_t{1} << (static_cast<unsigned char>(character) & 63U);
  }

  std::uint64_t bits_ = 0;
};

}  // namespace ppword
