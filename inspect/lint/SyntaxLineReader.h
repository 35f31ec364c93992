#pragma once

#include <string>
#include <string_view>
#include <vector>

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
  void putExponent(const ppword::Division& division);
  void maskSigns();
  void readGroups(std::string_view prefix);
  void readOperand(const ppword::GroupSide& side);
  [[nodiscard]] LineResult spanOf(const ppword::GroupSide& side) const;
  void readReferences(std::string_view prefix);
  void restoreSigns();
  void readOperations();
  void showOddGroups();
  void putValue(std::size_t begin, std::size_t end);

  LineReading reading_;
  std::string& flat_ = reading_.flat;
  std::string text_;
  /// The line with products in place of divisions.
  std::string divided_;
  /// Computed groups of which a part is left out, as "/3" of (1/2/3).
  std::vector<LineResult> odd_;
  /// The references in them.
  std::vector<LineResult> oddReferences_;
  ppword::SyntaxLine line_;
  ppword::SignRecords signs_;
};

}  // namespace host
