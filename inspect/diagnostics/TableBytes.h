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
  /// The bytes of the file at `path`. Raises an UnreadableTable when it cannot be read, or is
  /// larger than a table may be.
  [[nodiscard]] static TableBytes read(const std::string& path);

  [[nodiscard]] std::string_view text() const noexcept { return bytes_; }
  /// Line and column, from 1.
  [[nodiscard]] Place placeOf(std::size_t offset) const;
  /// Where a place of the table is.
  [[nodiscard]] std::size_t offsetOf(Place place) const {
    return offsetOfLine(static_cast<std::size_t>(place.line) - 1) +
           static_cast<std::size_t>(place.column) - 1;
  }
  /// The part of a line around a column, which may be one after its end.
  [[nodiscard]] Excerpt excerptAt(long line, long column) const;

 private:
  /// A line, counted from 0, and where it begins.
  struct LineStart {
    std::size_t line;
    std::size_t offset;
  };

  [[nodiscard]] LineStart lineStartOf(std::size_t offset) const;
  [[nodiscard]] std::size_t offsetOfLine(std::size_t line) const;

  std::string bytes_;
  /// The lines of the first byte of each block, so that a table of short lines takes little memory.
  std::vector<LineStart> blocks_;
};

}  // namespace host
