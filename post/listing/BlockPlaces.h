#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "post/listing/CanonicalCall.h"

namespace host {

/// The blocks of an NC program by the numbers that they have in its listing: the line in the
/// program; for a file that the program calls, a thousand million for each file before it, and the
/// line.
class BlockPlaces {
 public:
  /// Adds a file: first the program, then those that it calls.
  void add(std::string name) { files_.push_back({std::move(name), 0}); }
  /// Says how many lines the file that was added last has.
  void setLines(long lines) { files_.back().lines = lines; }

  /// The number of a line of the file that was added last.
  [[nodiscard]] std::string numberOf(long line) const;
  /// The place of a block; a line after the end of its file is its last one. Line 0 of the program
  /// for "....." and for any other text that numbers no block. The place refers to this object.
  [[nodiscard]] LinePlace placeOf(std::string_view number) const;
  /// The place of a line of a file, counted from 0.
  [[nodiscard]] LinePlace placeOf(std::size_t file, long line) const;
  /// The names of the files; empty only before the program is added.
  [[nodiscard]] std::vector<std::string> names() const;
  /// True for the number of the line that follows the last one of the program.
  [[nodiscard]] bool isAfterProgram(std::string_view number) const;

 private:
  struct File {
    std::string name;
    long lines;
  };
  std::vector<File> files_;
};

}  // namespace host
