#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "language/syntax/LineObserver.h"
#include "language/syntax/ParameterSource.h"
#include "language/syntax/References.h"
#include "language/syntax/Signs.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// A line as it is written and what its text alone decides: the line after the passes that need no
/// parameter, the signs that are masked in it, and its references.
struct KnownLine {
  std::string written;
  /// False until `written` went through the passes up to maskSigns.
  bool isRead = false;
  std::string masked;
  SyntaxLine::Known facts;
  SignRecords signs;
  References words{kWordPrefix};
  References expressions{kExpressionPrefix};
  References numbers{kNumberPrefix};
};

/// The line that is being processed and what is known of the lines of the same syntax. The line of
/// a number is compared with the one that had the number last: the same text is not read again.
/// Buffers are reused for every line.
class LineScratch {
 public:
  /// `cleansParentheses`: whether the lines go through that pass.
  explicit LineScratch(bool cleansParentheses) : cleansParentheses_(cleansParentheses) {}

  /// Starts a line, by its number from 1 in its syntax, with a copy of its text: what it was taken
  /// from may change while it is processed.
  void start(std::size_t number, std::string_view text);

  [[nodiscard]] bool cleansParentheses() const noexcept { return cleansParentheses_; }
  [[nodiscard]] SyntaxLine& line() noexcept { return line_; }
  [[nodiscard]] KnownLine& known() noexcept { return *known_; }

  /// The line as it is now, its signs masked, is what will be known of it.
  void store();
  /// The line continues from there.
  void resume() noexcept { line_.resume(known_->masked, known_->facts); }

 private:
  /// Lines with higher numbers share the last place.
  static constexpr std::size_t kMostKnown = 16;

  void addLines(std::size_t count);

  bool cleansParentheses_;
  SyntaxLine line_;
  std::vector<std::unique_ptr<KnownLine>> lines_;
  KnownLine* known_ = nullptr;
};

/// Takes the line that `scratch` was started with through all passes, in their order. `observer`
/// (may be null) receives the line after each pass. False when the line cannot be processed. For
/// example
///   GOTO/%A+10,0  with A = 5  becomes  GOTO/   15.000000,0
[[nodiscard]] bool instantiateLine(LineScratch& scratch, ParameterSource& parameters,
                                   LineObserver* observer);

}  // namespace ppword
