#pragma once

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace host {

/// Hash of a short name, eight bytes at a time: every reference of a syntax asks for one. Lets a
/// map keyed by std::string be asked with a std::string_view.
struct TextHash {
  using is_transparent = void;
  [[nodiscard]] std::size_t operator()(std::string_view text) const noexcept {
    constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15U;
    std::uint64_t hash = text.size();
    const auto mix = [&hash](std::uint64_t bytes) {
      hash = (hash ^ bytes) * kMultiplier;
      hash ^= hash >> 32U;
    };
    const char* at = text.data();
    std::size_t left = text.size();
    for (; left >= sizeof(std::uint64_t); left -= sizeof(std::uint64_t)) {
      mix(bytesAt<std::uint64_t>(at));
      at += sizeof(std::uint64_t);
    }
    if (left >= sizeof(std::uint32_t)) {
      mix(bytesAt<std::uint32_t>(at));
      at += sizeof(std::uint32_t);
      left -= sizeof(std::uint32_t);
    }
    for (; left > 0; --left) mix(static_cast<unsigned char>(*at++));
    return hash;
  }

 private:
  template <class Integer>
  static Integer bytesAt(const char* at) noexcept {
    Integer bytes = 0;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes;
  }
};

template <class Value>
using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

}  // namespace host
