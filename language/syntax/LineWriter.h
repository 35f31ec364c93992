#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

namespace ppword {

/// Writes a line of many short pieces into a buffer of its own, which is kept from line to line. It
/// exists for speed: with a std::string in its place a line of NC_GOTO takes 2.5 % more
/// instructions.
class LineWriter {
 public:
  LineWriter() = default;
  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;

  /// Starts an empty line.
  void clear() noexcept { at_ = buffer_.data(); }

  [[gnu::always_inline]] void append(std::string_view piece) {
    if (left() < piece.size()) grow(piece.size());
    // Most pieces between two references are a comma.
    if (piece.size() == 1) {
      *at_++ = piece.front();
      return;
    }
    at_ = std::copy(piece.begin(), piece.end(), at_);
  }
  void append(std::size_t count, char character) {
    if (left() < count) grow(count);
    at_ = std::fill_n(at_, count, character);
  }

  /// Where up to `count` characters may be written; `advance` says how far they were.
  [[nodiscard]] char* space(std::size_t count) {
    if (left() < count) grow(count);
    return at_;
  }
  void advance(const char* end) noexcept { at_ += end - at_; }

  /// What was written so far; valid until more is.
  [[nodiscard]] std::string_view text() const noexcept { return {buffer_.data(), size()}; }

 private:
  static constexpr std::size_t kFirst = 256;

  [[nodiscard]] std::size_t size() const noexcept {
    return static_cast<std::size_t>(at_ - buffer_.data());
  }
  [[nodiscard]] std::size_t left() const noexcept { return static_cast<std::size_t>(end_ - at_); }
  [[gnu::noinline]] void grow(std::size_t more) {
    const std::size_t written = size();
    buffer_.resize(2 * buffer_.size() + more);
    at_ = buffer_.data() + written;
    end_ = buffer_.data() + buffer_.size();
  }

  std::vector<char> buffer_ = std::vector<char>(kFirst);
  char* at_ = buffer_.data();
  char* end_ = buffer_.data() + kFirst;
};

}  // namespace ppword
