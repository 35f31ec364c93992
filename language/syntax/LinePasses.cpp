#include "language/syntax/LinePasses.h"

#include <string_view>

#include "language/syntax/Passes.h"

namespace ppword {
namespace {

/// What opens a reference, where those of a line are stored, and its two passes.
struct Prefix {
  std::string_view text;
  References LineScratch::*references;
  /// A line without any of these has nothing for the passes.
  CharacterSet marks;
  Pass groupsPass;
  Pass referencesPass;
};

constexpr Prefix kPrefixes[] = {
    {kWordPrefix, &LineScratch::words, CharacterSet("(&"), Pass::WordGroups, Pass::Words},
    {kExpressionPrefix, &LineScratch::expressions, CharacterSet("("), Pass::ExpressionGroups,
     Pass::Expressions},
    {kNumberPrefix, &LineScratch::numbers, CharacterSet("(%"), Pass::NumberGroups, Pass::Numbers}};

}  // namespace

bool instantiateLine(LineScratch& scratch, bool cleansParentheses, ParameterSource& parameters,
                     LineObserver* observer) {
  SyntaxLine& line = scratch.line;
  SignRecords& signs = scratch.signs;
  const auto report = [&line, observer](Pass pass) {
    if (observer != nullptr) observer->lineAfterPass(pass, line.text());
  };
  report(Pass::Written);
  maskEscapedPercents(line);
  report(Pass::MaskEscapes);
  if (cleansParentheses) {
    cleanParentheses(line);
    report(Pass::CleanParentheses);
  }
  rewriteDivisions(line);
  report(Pass::RewriteDivisions);
  maskSigns(line, signs);
  report(Pass::MaskSigns);
  for (const Prefix& prefix : kPrefixes) {
    const bool isIdle = !line.holdsAny(prefix.marks);
    if (!isIdle) computeGroups(line, prefix.text, parameters, observer);
    report(prefix.groupsPass);
    if (!isIdle) substitute(line, scratch.*prefix.references, parameters);
    report(prefix.referencesPass);
  }
  if (!restoreSigns(line, signs, observer)) return false;
  report(Pass::RestoreSigns);
  evaluateLine(line, signs, observer);
  report(Pass::Evaluate);
  unmaskEscapedPercents(line);
  report(Pass::UnmaskEscapes);
  return true;
}

}  // namespace ppword
