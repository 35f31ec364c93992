#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace ppword {

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

}  // namespace ppword
