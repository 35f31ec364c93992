#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Stands in a reading for a byte whose value is not known before the line is put out, or that is
/// part of a number.
inline constexpr char kValueByte = '\x01';

/// A reference as the passes of the module take it. Positions are those of the line.
struct LineReference {
  std::size_t start;
  /// What stands between the prefix and what ends the reference.
  std::string_view name;
  /// The name that is looked up.
  std::string_view parameter;
  /// True for the expression of a "%(".
  bool isExpression = false;

  [[nodiscard]] std::size_t end() const { return start + 1 + name.size(); }
};

/// A "/" behind the first one of a line.
struct LineDivision {
  std::size_t at;
  std::string_view divisor;
  /// What it is multiplied by; empty for a division that stays.
  std::string reciprocal;
};

/// An operator that the evaluation of the line meets, from left to right.
struct LineOperation {
  std::size_t at;
  char sign;
  bool hasLeft;
  /// What stands on its left is a number, or may become one; and it is a sum.
  bool isLeftNumber;
  bool isBehindSum;
  std::string_view right;
  /// Where the computation begins, and where it ends.
  std::size_t begin;
  std::size_t end;
};

/// A part of a line that a computed number takes the place of.
struct LineResult {
  std::size_t begin;
  std::size_t end;
};

/// A syntax line as the textual passes read it. It lives as long as the line.
struct LineReading {
  std::string_view text;
  /// The line with values in place of references, products in place of divisions; as long as the
  /// line.
  std::string flat;
  /// Comments and prints are not computed.
  bool isComment = false;
  /// A comment, a print, or another word with text.
  bool isProse = false;
  std::vector<LineReference> references;
  std::vector<LineDivision> divisions;
  std::vector<LineOperation> operations;
  std::vector<LineResult> results;
};

[[nodiscard]] LineReading readLine(std::string_view line);

/// The number that a text begins with, blanks in front left out.
[[nodiscard]] std::optional<double> leadingNumber(std::string_view text);

/// True for what is a number, or may become one when values are put in.
[[nodiscard]] bool mayBeNumber(std::string_view operand);

}  // namespace host
