#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "language/syntax/ParameterSource.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// What opens a reference, in the order in which a line is substituted.
inline constexpr std::string_view kWordPrefix = "&";
inline constexpr std::string_view kExpressionPrefix = "%(";
inline constexpr std::string_view kNumberPrefix = "%";

/// A reference of a line.
struct Reference {
  /// The text between the reference before it, or the start of the line, and its prefix.
  std::string_view before;
  /// That of an expression begins with "(".
  std::string_view name;
  /// How many ")" stand behind its text.
  std::size_t parentheses;
};

/// The references of a line that one prefix opens. A name ends at the first "," behind the prefix
/// (at ")" for an expression) wherever it stands; only a line without one lets the nearest blank,
/// line feed or double quote end it. The separators around a reference stay.
class References {
 public:
  /// `prefix`: one of the three above.
  explicit References(std::string_view prefix) : prefix_(prefix) {}

  /// Finds the references of `line` (the same object at every call), unless its text is that of the
  /// last call, and tells `parameters` of the text behind a name that stands in no output. What is
  /// found is valid until the text of the line changes.
  void find(SyntaxLine& line, ParameterSource& parameters);

  /// From left to right.
  [[nodiscard]] const std::vector<Reference>& found() const noexcept { return found_; }
  /// The text behind the last reference; the whole line when there is none.
  [[nodiscard]] std::string_view rest() const noexcept { return rest_; }

 private:
  std::string_view prefix_;
  std::vector<Reference> found_;
  std::string_view rest_;
  SyntaxLine::Revision revision_ = SyntaxLine::kNoRevision;
};

}  // namespace ppword
