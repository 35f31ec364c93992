#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "verify/DocumentWords.h"
#include "verify/Words.h"

namespace verify {

/// A piece of a line of a table.
struct Piece {
  enum class Kind {
    Literal,
    /// The name of a parameter.
    Reference,
    /// What is computed, or whose name ends in doubt. Nothing after it is followed.
    Computed
  };
  Kind kind = Kind::Literal;
  std::string text;
  /// A reference that is written with &: references in its value are replaced too.
  bool isWord = false;
};

/// A line of an instruction, as far as this reader follows docs/syntax.md: what is printed as it is
/// written, and references that a parameter replaces.
struct TableLine {
  std::vector<Piece> pieces;
  /// The major word; empty where a reference is in its place.
  std::string word;
  /// True for a comment and for a word with a text.
  bool isText = false;
  /// True when a $ ends it.
  bool isContinued = false;

  [[nodiscard]] bool isComputed() const {
    return !pieces.empty() && pieces.back().kind == Piece::Kind::Computed;
  }
  [[nodiscard]] bool hasReference() const;
  [[nodiscard]] bool refersTo(std::string_view part) const;
};

[[nodiscard]] TableLine readTableLine(std::string_view line, const Words& words);

/// The lines of the instructions of a document, each read when it is first asked for.
class TableLines {
 public:
  using Lines = std::vector<TableLine>;

  /// Both must outlive the object.
  TableLines(const DocumentWords& document, const Words& words)
      : document_(document), words_(words) {}

  /// The lines of a sequence, from 1, of an instruction; null when the document does not have it.
  [[nodiscard]] const Lines* find(std::string_view instruction, int sequence);

 private:
  const DocumentWords& document_;
  const Words& words_;
  std::map<std::string, std::map<int, Lines>, std::less<>> read_;
};

}  // namespace verify
