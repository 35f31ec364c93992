#pragma once

#include "System/KEPComponent.h"
#include "System/KEPList.h"

/// Turns the syntax of an NC instruction into finished APT lines. Get one from a PP word container,
/// and use it as often as you like: each call uses the document as it is. With a container `words`,
/// this writes one line of your own:
///
///     words->SetUserSyntax("GOTO/%MFG_XPOINT+10,0");
///     KEPIMfgSyntaxEvaluation_var evaluation;
///     words->GetSyntaxEvaluation(evaluation, "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX");
///     KEPListValKEPUnicodeString lines;
///     if (!evaluation->InstantiateSyntax(lines, 1)) return;
///     for (const KEPUnicodeString& line : lines) std::cout << line.View() << '\n';
///
/// At a point with X 2.5 it writes: GOTO/   12.500000,0
class KEP_PLATFORM KEPIMfgSyntaxEvaluation : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgSyntaxEvaluation";

  /// Appends the lines of the syntax attribute at position `index` (from 1, the modeler's
  /// bookkeeping attributes not counted) to `lines`. Then the continuation marks are set in the
  /// whole list, in lines that were in it before too: "$" at the end of a line that goes on in the
  /// next one; and for NC_DELAY the "," at the end of a list's only line is removed. True when the
  /// attribute was found, is a list, and every line was processed. After a failure the lines
  /// finished before it stay appended; the marks are also set when the attribute is not a list. A
  /// parameter that cannot be evaluated is not a failure: the text of the setting
  /// MFG_UNEVALUATED_PPPARAMETER, or nothing, takes its place.
  [[nodiscard]] virtual bool InstantiateSyntax(KEPListValKEPUnicodeString& lines,
                                               const int& index) = 0;

  /// An integer stored for the caller; -1 until set. Setting returns 0.
  [[nodiscard]] virtual int GetAuxNumber() const = 0;
  virtual int SetAuxNumber(int number) = 0;

  /// The number of the sequential motion being output; -1 until set. Setting returns 0.
  [[nodiscard]] virtual int GetSeqMotionNumber() const = 0;
  virtual int SetSeqMotionNumber(int number) = 0;
};

using KEPIMfgSyntaxEvaluation_var = KEPVar<KEPIMfgSyntaxEvaluation>;
