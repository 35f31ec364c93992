#pragma once

#include <cstdint>
#include <string_view>

namespace host {

/// A checksum of stored values in order (FNV-1a of 64 bits): any single changed byte changes it.
class Digest {
 public:
  void add(std::int64_t number) noexcept {
    mix('i');
    addBytes(static_cast<std::uint64_t>(number));
  }
  void add(std::string_view text) noexcept {
    mix('t');
    addBytes(text.size());
    for (const char byte : text) mix(static_cast<unsigned char>(byte));
  }
  void addNull() noexcept { mix('n'); }

  [[nodiscard]] std::int64_t value() const noexcept { return static_cast<std::int64_t>(hash_); }

 private:
  void addBytes(std::uint64_t number) noexcept {
    for (unsigned shift = 0; shift < 64; shift += 8) mix((number >> shift) & 0xFFU);
  }
  void mix(std::uint64_t byte) noexcept { hash_ = (hash_ ^ byte) * 0x100000001B3U; }

  std::uint64_t hash_ = 0xCBF29CE484222325U;
};

}  // namespace host
