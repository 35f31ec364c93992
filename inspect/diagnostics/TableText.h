#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "inspect/diagnostics/Diagnostic.h"

namespace host {

/// The most characters that the table reader takes as one line or one token.
inline constexpr std::size_t kMostTableCharacters = 1023;

/// The bytes of a table file with their places. A file that cannot be opened has none.
class TableText {
 public:
  explicit TableText(const std::string& path) : file_(std::fopen(path.c_str(), "rb")) {}

  /// The next byte, EOF at the end; peek leaves it to be read.
  int next();
  [[nodiscard]] int peek();

  /// The place of the next byte, from 1.
  [[nodiscard]] long line() const noexcept { return line_; }
  [[nodiscard]] long column() const noexcept { return column_; }

 private:
  struct Close {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
  };
  std::unique_ptr<std::FILE, Close> file_;
  long line_ = 1;
  long column_ = 1;
};

/// A line as the table reader counts them: at most 1023 characters, line end included, of a
/// physical line. Here without the line end.
struct CountedLine {
  std::string text;
  /// Where it begins.
  long line = 0;
  long column = 0;
};

/// The next counted line. Nothing at the end.
[[nodiscard]] std::optional<CountedLine> nextCountedLine(TableText& text);

/// A token: `text` holds at most its first 1024 characters, `length` counts all of them.
struct TableToken {
  std::string text;
  std::size_t length = 0;
  long line = 0;
  long column = 0;

  [[nodiscard]] bool contains(std::string_view part) const {
    return text.find(part) != std::string::npos;
  }
};

/// The next token. Nothing at the end.
[[nodiscard]] std::optional<TableToken> nextTableToken(TableText& text);

/// The part of a physical line around a column.
[[nodiscard]] Excerpt excerptAt(const std::string& path, long line, long column);

}  // namespace host
