#include "src/syntax/LinePasses.h"

#include <string_view>

#include "Manufacturing/KEPMfgEnvVarMgt.h"
#include "src/syntax/EscapedPercent.h"
#include "src/syntax/Substitution.h"
#include "src/syntax/arithmetic/CleanParentheses.h"
#include "src/syntax/arithmetic/ComputeGroups.h"
#include "src/syntax/arithmetic/EvaluateLine.h"
#include "src/syntax/arithmetic/RewriteDivisions.h"

namespace ppword {
namespace {

/// What opens a reference, and what the passes for it are called.
struct Prefix {
  std::string_view text;
  /// A line without any of these has nothing for the passes.
  CharacterSet marks;
  std::string_view groups;
  std::string_view references;
};

constexpr Prefix kPrefixes[] = {
    {kWordPrefix, CharacterSet("(&"), "groups &", "references &"},
    {kExpressionPrefix, CharacterSet("("), "groups %(", "references %("},
    {kNumberPrefix, CharacterSet("(%"), "groups %", "references %"}};

/// Read when the first line is processed and kept for the process.
bool cleansParentheses() {
  static const bool isOn = !KEPMfgEnvVarMgt::Get("MFG_PPWORD_CLEAN_PARENTHESIS").IsEmpty();
  return isOn;
}

}  // namespace

bool instantiateLine(LineRoom& room, ParameterSource& parameters, KEPMfgPPWordListener* listener) {
  PassedLine& line = room.line;
  SignRecords& signs = room.signs;
  const auto tell = [&line, listener](std::string_view pass) {
    if (listener != nullptr) listener->LineAfterPass(pass, line.text());
  };
  tell("syntax");
  maskEscapedPercents(line);
  tell("mask escapes");
  if (cleansParentheses()) {
    cleanParentheses(line);
    tell("clean parentheses");
  }
  rewriteDivisions(line);
  tell("rewrite divisions");
  maskSigns(line, signs);
  tell("mask signs");
  for (const Prefix& prefix : kPrefixes) {
    const bool isIdle = !line.holdsAny(prefix.marks);
    if (!isIdle) computeGroups(line, prefix.text, parameters, listener);
    tell(prefix.groups);
    if (!isIdle) substitute(line, prefix.text, parameters);
    tell(prefix.references);
  }
  if (!restoreSigns(line, signs, listener)) return false;
  tell("restore signs");
  evaluateLine(line, signs, listener);
  tell("evaluate");
  unmaskEscapedPercents(line);
  tell("unmask escapes");
  return true;
}

}  // namespace ppword
