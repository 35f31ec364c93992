#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "verify/DocumentWords.h"
#include "verify/Values.h"
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
  /// Of a reference.
  ValueSource source{};
};

/// A line of an instruction, as far as this reader follows docs/syntax.md: what is printed as it is
/// written, and references that a parameter replaces.
struct TableLine {
  std::vector<Piece> pieces;
  /// The major word; empty where a reference is in its place.
  std::string word;
  /// True for a comment and for a word with a text.
  bool isText = false;
  /// True for a major word that a reader knows.
  bool isKnown = false;
  /// True when a $ ends it.
  bool isContinued = false;
  bool hasReference = false;

  [[nodiscard]] bool isComputed() const {
    return !pieces.empty() && pieces.back().kind == Piece::Kind::Computed;
  }
  [[nodiscard]] bool refersTo(std::string_view part) const;
};

[[nodiscard]] TableLine readTableLine(std::string_view line, const Words& words);

/// The lines of a sequence of an instruction.
struct InstructionLines {
  std::string name;
  std::vector<TableLine> lines;
  /// True when a whole point, a circle or a helix is in a statement of them, or may be.
  bool printsMotion = false;
  /// True when a GOTO or FROM has other coordinates than X, Y and Z in this order.
  bool printsOtherPoint = false;
  /// The same for a tool axis, a feed rate and a spindle speed.
  bool printsAxis = false;
  bool printsFeed = false;
  bool printsSpeed = false;
  /// True when the end of one is in them: of a line, of a circle, of a helix.
  bool printsPoint = false;
  bool printsCircleEnd = false;
  bool printsHelixEnd = false;
  /// How many references are in those that do not compute.
  std::size_t references = 0;

  [[nodiscard]] bool refersTo(std::string_view part) const;
};

/// The lines of the instructions of a document, each read when it is first asked for.
class TableLines {
 public:
  /// All must outlive the object.
  TableLines(const DocumentWords& document, const Words& words, const Generation& generation)
      : document_(document), words_(words), generation_(generation) {}

  /// The lines of a sequence, from 1, of an instruction; null when the document does not have it.
  [[nodiscard]] const InstructionLines* find(std::string_view instruction, int sequence);

 private:
  [[nodiscard]] std::optional<std::string> formatOf(std::string_view parameter) const;
  void followFormats(TableLine& line) const;

  const DocumentWords& document_;
  const Words& words_;
  const Generation& generation_;
  std::map<std::pair<std::string, int>, InstructionLines> read_;
};

}  // namespace verify
