#pragma once

namespace ppword {

/// True for every byte but the continuation bytes of UTF-8.
[[nodiscard]] constexpr bool startsCharacter(char byte) noexcept {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

}  // namespace ppword
