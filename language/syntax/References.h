#pragma once

#include <string_view>
#include <vector>

#include "language/syntax/ParameterSource.h"
#include "language/syntax/ReferenceCursor.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// A reference, and what the source of parameters found for its name.
struct FoundReference : Reference {
  FoundParameter parameter{};
};

/// The references of a line that one prefix opens. What was found in a text is known as long as the
/// line has the same text: a line that comes again is not read again.
class References {
 public:
  explicit References(std::string_view prefix) : prefix_(prefix) {}

  /// Finds the references of `line` (the same object at every call), unless its text is that of the
  /// last call, and reports to `parameters` the text after a name that the output drops. What is
  /// found is valid until the text of the line changes.
  void find(SyntaxLine& line, ParameterSource& parameters);

  /// From left to right.
  [[nodiscard]] std::vector<FoundReference>& found() noexcept { return found_; }

 private:
  std::string_view prefix_;
  std::vector<FoundReference> found_;
  SyntaxLine::Revision revision_ = SyntaxLine::kNoRevision;
};

}  // namespace ppword
