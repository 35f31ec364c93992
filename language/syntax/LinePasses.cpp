#include "language/syntax/LinePasses.h"

#include <algorithm>
#include <string_view>

#include "language/syntax/Passes.h"

namespace ppword {
namespace {

/// What opens a reference, where those of a line are stored, and its two passes.
struct Prefix {
  std::string_view text;
  References KnownLine::*references;
  /// A line without it has no such reference.
  CharacterSet mark;
  Pass groupsPass;
  Pass referencesPass;
};

constexpr Prefix kPrefixes[] = {
    {kWordPrefix, &KnownLine::words, CharacterSet("&"), Pass::WordGroups, Pass::Words},
    {kExpressionPrefix, &KnownLine::expressions, CharacterSet("("), Pass::ExpressionGroups,
     Pass::Expressions},
    {kNumberPrefix, &KnownLine::numbers, CharacterSet("%"), Pass::NumberGroups, Pass::Numbers}};

/// The passes that need no parameter, from the line as it is written; reports the line after each.
template <class Report>
void readLine(LineScratch& scratch, const Report& report) {
  SyntaxLine& line = scratch.line();
  line.start(scratch.known().written);
  report(Pass::Written);
  maskEscapedPercents(line);
  report(Pass::MaskEscapes);
  if (scratch.cleansParentheses()) {
    cleanParentheses(line);
    report(Pass::CleanParentheses);
  }
  rewriteDivisions(line);
  report(Pass::RewriteDivisions);
  maskSigns(line, scratch.known().signs);
  report(Pass::MaskSigns);
}

}  // namespace

void LineScratch::start(std::size_t number, std::string_view text) {
  const std::size_t place = std::min(number, kMostKnown) - 1;
  if (lines_.size() <= place) addLines(place + 1);
  known_ = lines_[place].get();
  if (text == known_->written) return;
  known_->isRead = false;
  known_->written = text;
}

void LineScratch::addLines(std::size_t count) {
  while (lines_.size() < count) lines_.push_back(std::make_unique<KnownLine>());
}

void LineScratch::store() {
  known_->masked = line_.text();
  known_->facts = {line_.revision(), line_.characters(), holdsGroups(line_)};
  known_->isRead = true;
}

bool instantiateLine(LineScratch& scratch, ParameterSource& parameters, LineObserver* observer) {
  SyntaxLine& line = scratch.line();
  KnownLine& known = scratch.known();
  const bool isReported = observer != nullptr && observer->receivesLines();
  const auto report = [&line, observer, isReported](Pass pass) {
    if (isReported) observer->lineAfterPass(pass, line.text());
  };
  if (!known.isRead || isReported) readLine(scratch, report);
  if (!known.isRead) scratch.store();
  scratch.resume();
  for (const Prefix& prefix : kPrefixes) {
    if (line.mayHoldGroups()) computeGroups(line, prefix.text, parameters, observer);
    report(prefix.groupsPass);
    if (line.holdsAny(prefix.mark)) substitute(line, known.*prefix.references, parameters);
    report(prefix.referencesPass);
  }
  if (!restoreSigns(line, known.signs, observer)) return false;
  report(Pass::RestoreSigns);
  if (!known.signs.signs.empty()) evaluateLine(line, known.signs, observer);
  report(Pass::Evaluate);
  unmaskEscapedPercents(line);
  report(Pass::UnmaskEscapes);
  return true;
}

}  // namespace ppword
