#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lsp {

/// The longest message that is read, and the longest headers of one.
inline constexpr std::size_t kMostBytes = std::size_t{128} << 20U;
inline constexpr std::size_t kMostHeaderBytes = 4096;

/// Reads the messages of the base protocol from the standard input: headers, an empty line, and as
/// many bytes as the header Content-Length says.
class MessageReader {
 public:
  /// Reads what is there, and waits for the first byte if `waits`. False when nothing was read.
  bool fill(bool waits);

  /// The next message that is whole; nothing when there is none yet, or nothing can be read any
  /// more.
  [[nodiscard]] std::optional<std::string> take();

  /// True at the end of the input.
  [[nodiscard]] bool isAtEnd() const noexcept { return isAtEnd_; }
  /// True when bytes are left that are no whole message.
  [[nodiscard]] bool hasRest() const noexcept { return begin_ < bytes_.size(); }
  /// Why no message can be found any more; empty as long as they can.
  [[nodiscard]] const std::string& fault() const noexcept { return fault_; }

 private:
  void dropTaken();
  void readHeaders();
  void readHeaderLines(std::string_view lines);
  void readHeader(std::string_view line);
  void readLength(std::string_view value);

  std::string bytes_;
  std::size_t begin_ = 0;
  /// Of the message whose headers were read.
  std::optional<std::size_t> length_;
  bool isAtEnd_ = false;
  std::string fault_;
};

/// Writes a message to the standard output. False when it cannot be written.
[[nodiscard]] bool writeMessageBytes(std::string_view content);

}  // namespace lsp
