#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ppword {

/// A run of bytes between blanks, and where it begins in its table.
struct Token {
  std::string_view text;
  std::size_t offset = 0;

  [[nodiscard]] bool contains(std::string_view part) const {
    return text.find(part) != std::string_view::npos;
  }
};

/// A line, or the rest of one, as the readers of a table count lines: without its line end, and
/// where it begins.
struct CountedLine {
  std::string_view text;
  std::size_t offset = 0;
  /// False for a line that was cut at kMostCharacters, and for the last one of a table that does
  /// not end in a line feed.
  bool hasEnd = false;

  /// With its line feed, as TableSource::nextLine returns it.
  [[nodiscard]] std::string asRead() const { return std::string(text) + (hasEnd ? "\n" : ""); }
};

/// Reads the tokens and lines of a table in memory one after the other. They refer to the table.
class TableCursor {
 public:
  explicit TableCursor(std::string_view table) : table_(table) {}

  /// Where the next read begins.
  [[nodiscard]] std::size_t offset() const noexcept { return at_; }
  void seek(std::size_t offset) noexcept { at_ = offset; }

  /// The next token, of which at most the first `most` bytes are read. Nothing at the end.
  std::optional<Token> nextToken(std::size_t most = std::string_view::npos);
  /// The next token that does not begin with "/".
  std::optional<Token> nextPlainToken();
  /// The rest of the line, at most kMostCharacters of it with its line feed. Nothing at the end.
  std::optional<CountedLine> nextLine();

 private:
  std::string_view table_;
  std::size_t at_ = 0;
};

}  // namespace ppword
