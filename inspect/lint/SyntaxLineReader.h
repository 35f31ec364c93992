#pragma once

#include <string>
#include <string_view>

#include "inspect/lint/LineReading.h"
#include "language/syntax/GroupCursor.h"
#include "language/syntax/Signs.h"
#include "language/syntax/SyntaxLine.h"

namespace host {

/// True for what can be the name of a parameter.
[[nodiscard]] bool mayBeParameter(std::string_view name);

/// Reads lines with the cursors of the passes. Values are not known: each is taken for a number
/// without sign.
class SyntaxLineReader {
 public:
  /// `line` must live as long as what is given, which is valid until the next line is read.
  const LineReading& read(std::string_view line);

 private:
  void start(std::string_view line);
  void readDivisions();
  void maskSigns();
  void readGroups(std::string_view prefix);
  void readOperand(const ppword::GroupSide& side);
  void readReferences(std::string_view prefix);
  void restoreSigns();
  void readOperations();
  void putValue(std::size_t begin, std::size_t end);

  LineReading reading_;
  std::string& flat_ = reading_.flat;
  std::string text_;
  ppword::SyntaxLine line_;
  ppword::SignRecords signs_;
};

}  // namespace host
