#pragma once

#include "System/KEPList.h"
#include "System/KEPVar.h"

/// Turns the syntax of an NC instruction into finished APT lines.
class KEP_PLATFORM KEPIMfgSyntaxEvaluation : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgSyntaxEvaluation";

  /// Appends the lines of the syntax attribute at position `index` (from 1, the modeler's
  /// bookkeeping attributes not counted) to `lines`. Then the whole list, lines that were in it
  /// before too, gets its continuation marks: "$" at the end of a line that goes on in the next
  /// one; and for NC_DELAY the "," at the end of a list's one line goes. True when the attribute
  /// was found, is a list, and every line was processed. After a failure the lines finished before
  /// it stay appended; an attribute that is no list still leads to the marks. A parameter that
  /// cannot be evaluated is no failure: the text of the setting MFG_UNEVALUATED_PPPARAMETER, or
  /// nothing, takes its place.
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
