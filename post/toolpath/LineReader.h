#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace host {

/// Input that is refused: where and why. Line and column count from 1; 0 where the error has no
/// such place.
class InputError : public std::runtime_error {
 public:
  InputError(std::string_view file, long line, long column, std::string_view message);
  ~InputError() override;

  [[nodiscard]] const std::string& file() const noexcept { return file_; }
  [[nodiscard]] long line() const noexcept { return line_; }
  [[nodiscard]] long column() const noexcept { return column_; }
  /// The message without its place; what() begins with FILE:LINE:COL.
  [[nodiscard]] const std::string& message() const noexcept { return message_; }

 private:
  std::string file_;
  long line_;
  long column_;
  std::string message_;
};

/// How much of an open file was read, from 0 to 1, without the bytes that were read and not used;
/// nothing for one without a length, such as a pipe.
[[nodiscard]] std::optional<double> shareRead(int descriptor, std::size_t unused);

/// Reads a text file line by line in constant memory.
class LineReader {
 public:
  /// The longest line, without its line feed.
  static constexpr std::size_t kLongestLine = std::size_t{1} << 20U;
  /// Bytes after a line that may be read; their values mean nothing.
  static constexpr std::size_t kPadding = 64;

  /// Opens the file, "-" for the standard input. Raises an InputError if it cannot be opened.
  explicit LineReader(const std::string& path);
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  /// Sets `line` to the next line without its line feed; false at the end of the file. A last line
  /// needs no line feed. `line` is valid until the next call. Raises an InputError for a file that
  /// cannot be read and for a line that is too long.
  [[nodiscard]] bool next(std::string_view& line);

  /// The first unread bytes, at least `least` unless the file ends sooner; 64 KiB can be asked for.
  /// They stay unread.
  [[nodiscard]] std::string_view peek(std::size_t least = 64);

  /// Number of the line that was read last, from 1; 0 before the first.
  [[nodiscard]] long lineNumber() const noexcept { return lineNumber_; }
  /// How much of the file was read, from 0 to 1; nothing for one without a length, such as a pipe.
  [[nodiscard]] std::optional<double> share() const {
    return shareRead(descriptor_, unread().size());
  }
  /// The file's name for messages.
  [[nodiscard]] const std::string& name() const noexcept { return name_; }

 private:
  /// Reads more bytes after the unread ones; false at the end of the file.
  bool fill();
  [[nodiscard]] std::string_view unread() const noexcept {
    return {buffer_.get() + begin_, end_ - begin_};
  }
  [[nodiscard]] std::string_view take(std::size_t length, std::size_t lineFeed);

  std::string name_;
  int descriptor_;
  std::unique_ptr<char[]> buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  long lineNumber_ = 0;
};

}  // namespace host
