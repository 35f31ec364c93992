#pragma once

#include "System/KEPList.h"
#include "System/KEPVar.h"

/// Turns the syntax of an NC instruction into finished APT lines.
class KEP_PLATFORM KEPIMfgSyntaxEvaluation : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgSyntaxEvaluation";

  /// Appends the lines of the syntax attribute at position `index` (from 1, the modeler's
  /// bookkeeping attributes not counted) to `lines`; what `lines` held stays. True when the
  /// attribute was found, is a list, and every line was processed. After a failure the lines
  /// finished before it stay appended. A parameter that cannot be evaluated is no failure: the text
  /// of the setting MFG_UNEVALUATED_PPPARAMETER, or nothing, takes its place.
  [[nodiscard]] virtual bool InstantiateSyntax(KEPListValKEPUnicodeString& lines,
                                               const int& index) = 0;

  /// An integer kept for the caller; -1 until set. Setting returns 0.
  [[nodiscard]] virtual int GetAuxNumber() const = 0;
  virtual int SetAuxNumber(int number) = 0;

  /// The number of the sequential motion being output; -1 until set. Setting returns 0.
  [[nodiscard]] virtual int GetSeqMotionNumber() const = 0;
  virtual int SetSeqMotionNumber(int number) = 0;
};

using KEPIMfgSyntaxEvaluation_var = KEPVar<KEPIMfgSyntaxEvaluation>;
