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

/// What opens a reference, where those of a line are kept, and what the passes are called.
struct Prefix {
  std::string_view text;
  References LineRoom::*references;
  /// A line without any of these has nothing for the passes.
  CharacterSet marks;
  std::string_view groupsPass;
  std::string_view referencesPass;
};

constexpr Prefix kPrefixes[] = {
    {kWordPrefix, &LineRoom::words, CharacterSet("(&"), "groups &", "references &"},
    {kExpressionPrefix, &LineRoom::expressions, CharacterSet("("), "groups %(", "references %("},
    {kNumberPrefix, &LineRoom::numbers, CharacterSet("(%"), "groups %", "references %"}};

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
    tell(prefix.groupsPass);
    if (!isIdle) substitute(line, room.*prefix.references, parameters);
    tell(prefix.referencesPass);
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
