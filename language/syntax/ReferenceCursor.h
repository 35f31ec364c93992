#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "language/syntax/Characters.h"

namespace ppword {

/// What opens a reference, in the order in which a line is substituted.
inline constexpr std::string_view kWordPrefix = "&";
inline constexpr std::string_view kExpressionPrefix = "%(";
inline constexpr std::string_view kNumberPrefix = "%";

/// A reference of a line. From `start` to `end` the text of its parameter and the parentheses take
/// its place.
struct Reference {
  /// Where its prefix is.
  std::size_t start;
  std::size_t end;
  /// That of an expression begins with "(".
  std::string_view name;
  /// What is cut off after the name, one after the other, each mostly empty: a "$" with what
  /// follows it, a ")" with what follows it, and the character before a line feed.
  std::string_view dollar;
  std::string_view parenthesis;
  std::string_view beforeLineFeed;
  /// How many ")" come after its text.
  std::size_t parentheses;
};

/// Finds the references of a line that one prefix opens, from left to right. A name ends at the
/// first "," after the prefix (at ")" for an expression) wherever it is; only a line without one
/// lets the nearest blank, line feed or double quote end it. For example
///   X/%A B,(P/%C)D  has the references  "A B"  and  "C", of which ")D" is cut off
/// What ends a name stays in the line, except the ")" of an expression.
class ReferenceCursor {
 public:
  /// `prefix`: one of the three above. `characters`: those of the line.
  ReferenceCursor(std::string_view line, std::string_view prefix, CharacterSet characters) noexcept;

  /// The next reference; nothing after the last one.
  [[nodiscard]] std::optional<Reference> next();

 private:
  [[nodiscard]] bool isExpression() const noexcept { return preferred_ == ')'; }
  [[nodiscard]] std::size_t nameEnd(std::size_t begin) noexcept;
  void trim(Reference& reference) const noexcept;

  std::string_view line_;
  std::string_view prefix_;
  char preferred_;
  bool hasPreferred_ = true;
  bool hasOthers_;
  bool isTrimmed_;
  std::size_t from_ = 0;
};

}  // namespace ppword
