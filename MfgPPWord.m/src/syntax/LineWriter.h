#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace ppword {

/// Writes a line of many short pieces into a room of its own, which is kept from line to line.
class LineWriter {
 public:
  LineWriter() = default;
  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;

  /// Starts an empty line.
  void clear() noexcept { at_ = room_.data(); }

  [[gnu::always_inline]] void append(std::string_view piece) {
    if (left() < piece.size()) grow(piece.size());
    at_ = copied(piece.data(), piece.size(), at_);
  }
  void append(std::size_t count, char character) {
    if (left() < count) grow(count);
    at_ = std::fill_n(at_, count, character);
  }

  /// What was written so far; valid until more is.
  [[nodiscard]] std::string_view text() const noexcept { return {room_.data(), size()}; }

 private:
  static constexpr std::size_t kFirst = 256;

  [[nodiscard]] std::size_t size() const noexcept {
    return static_cast<std::size_t>(at_ - room_.data());
  }
  [[nodiscard]] std::size_t left() const noexcept { return static_cast<std::size_t>(end_ - at_); }
  [[gnu::noinline]] void grow(std::size_t more) {
    const std::size_t written = size();
    room_.resize(2 * room_.size() + more);
    at_ = room_.data() + written;
    end_ = room_.data() + room_.size();
  }

  template <class Word>
  static void copyEnds(const char* from, std::size_t count, char* to) noexcept {
    Word first;
    Word last;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&last, from + count - sizeof last, sizeof last);
    std::memcpy(to, &first, sizeof first);
    std::memcpy(to + count - sizeof last, &last, sizeof last);
  }

  /// Copies without a call what fits into two words, which overlap unless it fills them.
  static char* copied(const char* from, std::size_t count, char* to) noexcept {
    if (count > 16) {
      std::memcpy(to, from, count);
    } else if (count >= 8) {
      copyEnds<std::uint64_t>(from, count, to);
    } else if (count >= 4) {
      copyEnds<std::uint32_t>(from, count, to);
    } else if (count > 1) {
      copyEnds<std::uint16_t>(from, count, to);
    } else if (count == 1) {
      *to = *from;
    }
    return to + count;
  }

  std::vector<char> room_ = std::vector<char>(kFirst);
  char* at_ = room_.data();
  char* end_ = room_.data() + kFirst;
};

}  // namespace ppword
