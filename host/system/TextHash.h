#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace host {

// Names are short and every reference of a syntax asks for some: they are hashed and compared eight
// bytes at a time and without a call.

inline constexpr std::size_t kNameStep = sizeof(std::uint64_t);

template <class Word>
[[nodiscard]] inline Word nameWord(const char* at) noexcept {
  Word word = 0;
  std::memcpy(&word, at, sizeof word);
  return word;
}

/// All bytes of a name of less than eight; equal only for equal names of one size.
[[nodiscard]] inline std::uint64_t shortName(const char* at, std::size_t size) noexcept {
  if (size >= 4) {
    const std::uint64_t first = nameWord<std::uint32_t>(at);
    return first << 32U | nameWord<std::uint32_t>(at + size - 4);
  }
  std::uint64_t bytes = 0;
  for (std::size_t i = 0; i < size; ++i) bytes = bytes << 8U | static_cast<unsigned char>(at[i]);
  return bytes;
}

/// Hash of a name. Lets a map keyed by std::string be asked with a std::string_view.
struct TextHash {
  using is_transparent = void;
  [[nodiscard, gnu::always_inline]] std::size_t operator()(std::string_view text) const noexcept {
    std::uint64_t hash = text.size();
    const char* at = text.data();
    if (text.size() < kNameStep) return mixed(hash ^ shortName(at, text.size()), 0);
    const char* const last = at + text.size() - kNameStep;
    for (; last - at > static_cast<std::ptrdiff_t>(kNameStep); at += kNameStep) {
      hash = mixed(hash ^ nameWord<std::uint64_t>(at), 0);
    }
    // The last words overlap unless the name fills them.
    return mixed(hash ^ nameWord<std::uint64_t>(at), nameWord<std::uint64_t>(last));
  }

 private:
  __extension__ using Wide = unsigned __int128;

  /// Both halves of one product: every byte of both words shows in the lowest bits.
  [[nodiscard]] static std::uint64_t mixed(std::uint64_t first, std::uint64_t second) noexcept {
    constexpr std::uint64_t kFirst = 0x9E3779B97F4A7C15U;
    constexpr std::uint64_t kSecond = 0xD6E8FEB86659FD93U;
    const Wide product = static_cast<Wide>(first ^ kFirst) * (second ^ kSecond);
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
  }
};

/// True for equal names.
[[nodiscard]] inline bool isSameText(std::string_view left, std::string_view right) noexcept {
  const std::size_t size = left.size();
  if (size != right.size()) return false;
  const char* at = left.data();
  const char* other = right.data();
  if (size < kNameStep) return shortName(at, size) == shortName(other, size);
  const char* const last = at + size - kNameStep;
  std::uint64_t differing = 0;
  for (; at < last; at += kNameStep, other += kNameStep) {
    differing |= nameWord<std::uint64_t>(at) ^ nameWord<std::uint64_t>(other);
  }
  const char* const otherLast = right.data() + size - kNameStep;
  return (differing | (nameWord<std::uint64_t>(last) ^ nameWord<std::uint64_t>(otherLast))) == 0;
}

template <class Value>
using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

}  // namespace host
