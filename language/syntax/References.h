#pragma once

#include <string>
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

/// The references of a line that one prefix opens. A line whose text is that of the last one is not
/// read again, also where the passes before have put it together again: most lines have the same
/// words each time.
class References {
 public:
  explicit References(std::string_view prefix) : prefix_(prefix) {}

  /// Finds the references of `line` (the same object at every call), and reports to `parameters`
  /// the text after a name that the output drops. What is found is valid until the next call.
  void find(SyntaxLine& line, ParameterSource& parameters);

  /// From left to right.
  [[nodiscard]] std::vector<FoundReference>& found() noexcept { return found_; }

 private:
  void read(SyntaxLine& line, ParameterSource& parameters);

  std::string_view prefix_;
  /// What was read last. The names are parts of it.
  std::string text_;
  /// True when a part of it is dropped, which is reported each time.
  bool isDropped_ = false;
  std::vector<FoundReference> found_;
  SyntaxLine::Revision revision_ = SyntaxLine::kNoRevision;
};

}  // namespace ppword
