#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace verify {

/// Writes the next bytes of a text, at most `most`, to `to`. Returns how many; 0 at the end.
using ByteSource = std::function<std::size_t(char* to, std::size_t most)>;

/// The bytes of a text that is at hand. It must outlive the source.
[[nodiscard]] ByteSource bytesOf(std::string_view text);

/// Reads a text line by line in constant memory.
class TextLines {
 public:
  /// The longest line; of a longer one the beginning is returned, and nothing after it is read.
  static constexpr std::size_t kLongestLine = std::size_t{1} << 20U;

  explicit TextLines(ByteSource bytes) : bytes_(std::move(bytes)), chunk_(kChunk) {}

  /// Sets `line` to the next line without its end, LF or CR LF; false after the last one, which
  /// needs no end. It is valid until the next call. Passes on what the source raises.
  [[nodiscard]] bool next(std::string_view& line);

  /// Number of the line that was read last, from 1; 0 before the first.
  [[nodiscard]] long number() const noexcept { return number_; }
  /// True when that line is longer than kLongestLine.
  [[nodiscard]] bool isCut() const noexcept { return isCut_; }

 private:
  static constexpr std::size_t kChunk = std::size_t{1} << 16U;

  [[nodiscard]] bool fill();
  bool take();
  [[nodiscard]] bool takeWhole(std::string_view& line);

  ByteSource bytes_;
  std::vector<char> chunk_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::string line_;
  long number_ = 0;
  bool isCut_ = false;
};

}  // namespace verify
