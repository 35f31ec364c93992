#pragma once

#include <memory>

#include "KEPIMfgPPWordContainer.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "language/syntax/LinePasses.h"
#include "src/registration/Registered.h"

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

  void tellSequentialMotion(const KEPIMfgPPWordContainer_var& container) const;
  [[nodiscard]] Outcome appendLines(const KEPISpecObject_var& feature,
                                    const KEPIMfgPPWordContainer_var& container, int index,
                                    KEPListValKEPUnicodeString& lines);

  int auxNumber_ = -1;
  int seqMotionNumber_ = -1;
  /// The buffers that lines are processed in, reused from call to call.
  std::unique_ptr<ppword::LineScratch> scratch_;
};
