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
    const char* const end = at + text.size();
    if (text.size() < kStep) {
      while (at != end) mix(static_cast<unsigned char>(*at++));
      return hash;
    }
    for (const char* const last = end - kStep; at < last; at += kStep) mix(bytesAt(at));
    // The last bytes may be hashed twice.
    mix(bytesAt(end - kStep));
    return hash;
  }

 private:
  static constexpr std::size_t kStep = sizeof(std::uint64_t);

  static std::uint64_t bytesAt(const char* at) noexcept {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes;
  }
};

/// True for equal texts. Names are short: no call for up to 16 bytes.
[[nodiscard]] inline bool isSameText(std::string_view left, std::string_view right) noexcept {
  const std::size_t size = left.size();
  if (size != right.size()) return false;
  const auto differ = [&]<class Word>(Word first, Word last) {
    Word other[2];
    std::memcpy(&first, left.data(), sizeof first);
    std::memcpy(&last, left.data() + size - sizeof last, sizeof last);
    std::memcpy(&other[0], right.data(), sizeof first);
    std::memcpy(&other[1], right.data() + size - sizeof last, sizeof last);
    return ((first ^ other[0]) | (last ^ other[1])) != 0;
  };
  // The two words overlap unless the text is as long as both.
  if (size >= 8 && size <= 16) return !differ(std::uint64_t{}, std::uint64_t{});
  if (size >= 4 && size < 8) return !differ(std::uint32_t{}, std::uint32_t{});
  return left == right;
}

template <class Value>
using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

}  // namespace host
