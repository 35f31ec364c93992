#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace lsp {

/// What a character of a position counts: bytes, 16-bit units or code points.
enum class Encoding { Utf8, Utf16, Utf32 };

/// A place of a text as clients count it: both from 0. Lines end with a line feed, a carriage
/// return, or both.
struct Position {
  std::size_t line = 0;
  std::size_t character = 0;
};

/// Converts between offsets in bytes and positions. A place at or after the last one costs only the
/// way from there. The text must outlive it.
class TextPositions {
 public:
  TextPositions(std::string_view text, Encoding encoding) : text_(text), encoding_(encoding) {}

  /// An offset after the text is its end; one in a line end is before it.
  [[nodiscard]] Position at(std::size_t offset);
  /// A character after the end of its line is that end; a line after the text is its end.
  [[nodiscard]] std::size_t offsetOf(Position position);

 private:
  void rewind() noexcept;
  [[nodiscard]] std::size_t contentEnd();
  [[nodiscard]] std::size_t nextLine();
  bool toNextLine();
  void stepTo(std::size_t offset);
  void stepBack();
  void stepToCharacter(std::size_t character);
  [[nodiscard]] std::size_t unitsAt(std::size_t offset) const;
  [[nodiscard]] std::size_t sizeAt(std::size_t offset) const;

  std::string_view text_;
  Encoding encoding_;
  /// The line of the last place, and where it begins.
  std::size_t line_ = 0;
  std::size_t lineBegin_ = 0;
  /// A place in this line, and its character.
  std::size_t at_ = 0;
  std::size_t character_ = 0;
  /// The first line feed at or after the line's beginning, and the end of the line; each may be
  /// unknown.
  std::optional<std::size_t> lineFeed_;
  std::optional<std::size_t> lineEnd_;
};

}  // namespace lsp
