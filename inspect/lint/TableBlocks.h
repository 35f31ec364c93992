#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "inspect/diagnostics/TableBytes.h"
#include "language/table/TableCursor.h"

namespace host {

using ppword::Token;

/// A line of a syntax as the module gets it. One that was cut at column 80 has the bytes that were
/// moved up to it after its own.
struct TableLine {
  std::string text;
  std::size_t offset = 0;
  /// Where the moved bytes begin in the text, and where they are in the table.
  std::size_t joinedAt = std::string::npos;
  std::size_t joinedOffset = 0;
  /// True for a line that does not begin on a line of its own.
  bool isAfterAnother = false;
  /// True for a line that goes on with the one before it.
  bool isContinued = false;
  /// Where the line is in its body, and whether an insert comes directly before or after it.
  bool isFirst = false;
  bool isLast = false;
  bool isAfterInsert = false;
  bool isBeforeInsert = false;
  /// The command that the body is of; empty for a free syntax. It points into the table.
  std::string_view command{};

  [[nodiscard]] std::size_t offsetOf(std::size_t position) const {
    return position < joinedAt ? offset + position : joinedOffset + position - joinedAt;
  }
};

/// The blocks of a table as its reader finds them.
struct TableBlocks {
  /// Word sections by kind, from 1: the pieces between commas and blanks.
  struct WordSection {
    int kind;
    Token keyword;
    std::deque<Token> pieces;
  };
  /// A block with a name; the name is empty when the word after the keyword is not one.
  struct Named {
    Token keyword;
    Token name;
    std::vector<Token> values;
    /// Where the block ends: after its "*END", or before what begins next.
    std::size_t end = 0;
  };
  /// A line "*INSERT NC_...".
  struct Insert {
    Token keyword;
    Token name;
  };
  /// A part of the body of a command, in the order of the file: a line or an insert, by its index
  /// in `lines` or `inserts`, or the keyword of a sequence or of an end.
  struct Part {
    enum class Kind { Line, Insert, Sequence, End };
    Kind kind;
    std::size_t index = 0;
  };

  std::vector<WordSection> words;
  std::vector<Token> syntaxSections;
  std::deque<Named> commands;
  /// The bodies of the commands, one for each.
  std::vector<std::vector<Part>> bodies;
  std::deque<Named> lists;
  std::deque<Named> formats;
  std::deque<Insert> inserts;
  /// The keywords of first sequences of commands that have lines of their own.
  std::vector<Token> mixedSequences;
  /// Lines of commands after a sequence, which no reader finds.
  std::vector<Token> lostLines;
  /// Of all commands and sequences, and the free syntaxes.
  std::vector<TableLine> lines;
};

/// Reads a table's blocks; they point into the bytes.
[[nodiscard]] TableBlocks readBlocks(const TableBytes& bytes);
/// The same without bodies and lines, which take most of the memory.
[[nodiscard]] TableBlocks readBlocksWithoutLines(const TableBytes& bytes);
/// Calls `visit` with each of the lines, in their order; it is valid during the call.
void visitLines(const TableBytes& bytes, const std::function<void(const TableLine& line)>& visit);

}  // namespace host
