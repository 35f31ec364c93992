#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"

namespace host {

/// The bytes of a table in memory, with the places of their offsets.
class TableBytes {
 public:
  struct Place {
    long line;
    long column;
  };

  explicit TableBytes(std::string bytes);
  /// The bytes of the file at `path`; none when it cannot be read.
  [[nodiscard]] static TableBytes read(const std::string& path);

  [[nodiscard]] std::string_view text() const noexcept { return bytes_; }
  /// Line and column, from 1.
  [[nodiscard]] Place placeOf(std::size_t offset) const;
  [[nodiscard]] std::size_t offsetOf(long line, long column) const;
  /// The part of a line around a column, which may stand behind its end.
  [[nodiscard]] Excerpt excerptAt(long line, long column) const;

 private:
  [[nodiscard]] std::size_t lineOf(std::size_t offset) const;

  std::string bytes_;
  std::vector<std::size_t> lineStarts_{0};
};

/// A run of bytes between blanks, and its offset.
struct Token {
  std::string_view text;
  std::size_t offset = 0;

  [[nodiscard]] bool contains(std::string_view part) const {
    return text.find(part) != std::string_view::npos;
  }
};

/// Reads the tokens of a table one after the other.
class TokenScanner {
 public:
  explicit TokenScanner(std::string_view text) : text_(text) {}

  /// The next token; an empty one at the end. The second form passes over those that begin with
  /// "/".
  Token next();
  Token nextPlain();
  /// What `next` will give.
  [[nodiscard]] Token peek() const { return TokenScanner(*this).next(); }
  /// The rest of the line behind the last token, without blanks at its end.
  std::string_view restOfLine();

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace host
