#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace ppword {

/// Writes a line of many short pieces into a string. Between construction and `finish` the string
/// is the writer's: its size says nothing.
class LineWriter {
 public:
  explicit LineWriter(std::string& room) : room_(room) { widen(std::max(room.capacity(), kFirst)); }
  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;

  [[gnu::always_inline]] void append(std::string_view piece) {
    if (static_cast<std::size_t>(end_ - at_) < piece.size()) grow(piece.size());
    at_ = copied(piece.data(), piece.size(), at_);
  }
  void append(std::size_t count, char character) {
    if (static_cast<std::size_t>(end_ - at_) < count) grow(count);
    at_ = std::fill_n(at_, count, character);
  }

  /// What was written so far; valid until more is.
  [[nodiscard]] std::string_view text() const noexcept { return {room_.data(), size()}; }

  /// Leaves the string with exactly what was written.
  void finish() { room_.resize(size()); }

 private:
  static constexpr std::size_t kFirst = 120;

  [[nodiscard]] std::size_t size() const noexcept {
    return static_cast<std::size_t>(at_ - room_.data());
  }
  void widen(std::size_t wanted) {
    const std::size_t written = at_ == nullptr ? 0 : size();
    room_.resize(wanted);
    at_ = room_.data() + written;
    end_ = room_.data() + wanted;
  }
  void grow(std::size_t more) { widen(2 * room_.size() + more); }

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
    } else {
      for (std::size_t i = 0; i < count; ++i) to[i] = from[i];
    }
    return to + count;
  }

  std::string& room_;
  char* at_ = nullptr;
  char* end_ = nullptr;
};

}  // namespace ppword
