#pragma once

#include <memory>

#include "KEPIMfgPPWordContainer.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "language/syntax/LinePasses.h"
#include "src/registration/Registered.h"
#include "src/revision/RevisionMark.h"

/// The syntax engine of an NC instruction: an extension of "MfgPPSyntax" types.
class KEPMfgSyntaxEvaluation final
    : public ppword::Registered<KEPMfgSyntaxEvaluation, KEPIMfgSyntaxEvaluation> {
 public:
  [[nodiscard]] bool InstantiateSyntax(KEPListValKEPUnicodeString& lines,
                                       const int& index) override;
  [[nodiscard]] int GetAuxNumber() const override { return auxNumber_; }
  int SetAuxNumber(int number) override;
  [[nodiscard]] int GetSeqMotionNumber() const override { return seqMotionNumber_; }
  int SetSeqMotionNumber(int number) override;

 private:
  /// What became of the lines of a syntax attribute.
  enum class Outcome { AllLines, NoSyntax, Failed };

  /// What was found in the document when nothing has changed since, pointers that are not counted.
  struct Known {
    ppword::RevisionMark mark;
    KEPIMfgPPWordContainer* container = nullptr;
    /// The lines of the attribute at `index`; null when they were not looked for.
    const KEPListValKEPUnicodeString* texts = nullptr;
    int index = 0;
  };

  /// The PP word container that holds the feature; null when none does.
  [[nodiscard]] KEPIMfgPPWordContainer_var containerOf(const KEPISpecObject_var& feature);
  /// The lines at `index` while they are known; else null.
  [[nodiscard]] const KEPListValKEPUnicodeString* knownTexts(int index) const noexcept;
  /// Those of an attribute that was just found there.
  [[nodiscard]] const KEPListValKEPUnicodeString* textsOf(const KEPISpecAttribute& syntax,
                                                          int index) noexcept;
  /// The lines as they are now; null when the attribute is not there any more.
  [[nodiscard]] const KEPListValKEPUnicodeString* textsNow(const KEPISpecObject_var& feature,
                                                           int index);
  void tellSequentialMotion(const KEPIMfgPPWordContainer_var& container) const;
  [[nodiscard]] Outcome appendLines(const KEPISpecObject_var& feature,
                                    const KEPIMfgPPWordContainer_var& container, int index,
                                    KEPListValKEPUnicodeString& lines);

  Known known_;
  int auxNumber_ = -1;
  int seqMotionNumber_ = -1;
  /// The buffers that lines are processed in, reused from call to call.
  std::unique_ptr<ppword::LineScratch> scratch_;
};
