#include "src/syntax/KEPMfgSyntaxEvaluation.h"

#include <string_view>
#include <utility>

#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "src/syntax/Continuation.h"
#include "src/syntax/DocumentParameters.h"
#include "src/syntax/SyntaxAttribute.h"

using namespace ppword;

namespace {

constexpr std::string_view kDelayInstruction = "NC_DELAY";

}  // namespace

bool KEPMfgSyntaxEvaluation::InstantiateSyntax(KEPListValKEPUnicodeString& lines,
                                               const int& index) {
  const auto feature = KEPISpecObject_var::Of(GetImpl());
  Outcome outcome = Outcome::NoSyntax;
  if (feature) {
    KEPIMfgPPWordContainer_var container;
    KEPMfgModelUtilities::GetPPWordContainer(feature, container);
    tellSequentialMotion(container);
    outcome = appendLines(feature, container, index, lines);
  }
  if (outcome == Outcome::Failed) return false;
  setContinuationMarks(lines);
  if (hasTrailingComma(lines) && IsAKindOf(kDelayInstruction)) dropTrailingComma(lines);
  return outcome == Outcome::AllLines;
}

void KEPMfgSyntaxEvaluation::tellSequentialMotion(
    const KEPIMfgPPWordContainer_var& container) const {
  auto* const buffer = KEPBorrow<KEPIMfgBufferSeqMotionNumber>(container.Get());
  if (buffer != nullptr) buffer->SetNumber(seqMotionNumber_);
}

KEPMfgSyntaxEvaluation::Outcome KEPMfgSyntaxEvaluation::appendLines(
    const KEPISpecObject_var& feature, const KEPIMfgPPWordContainer_var& container, int index,
    KEPListValKEPUnicodeString& lines) {
  const auto syntax = syntaxAttribute(feature, index);
  if (!syntax) {
    return feature->GetNumberOfAttributes() == 0 ? Outcome::NoSyntax : Outcome::Failed;
  }
  if (!syntax->IsAList()) return Outcome::NoSyntax;
  const int count = syntax->GetTexts().Size();
  if (count > 0 && !container) return Outcome::Failed;
  DocumentParameters parameters(feature, container);
  // Taken out for the call: an evaluation may instantiate this very syntax again.
  auto room = room_ ? std::move(room_) : std::make_unique<LineRoom>();
  for (int i = 1; i <= count; ++i) {
    // Taken anew behind the first line: an evaluation may have changed the syntax.
    const auto current = i == 1 ? syntax : syntaxAttribute(feature, index);
    if (!current || i > current->GetTexts().Size()) return Outcome::Failed;
    room->line.start(current->GetTexts()[i]);
    if (!instantiateLine(*room, parameters, parameters.listener())) return Outcome::Failed;
    lines.Append(KEPUnicodeString(room->line.text()));
  }
  room_ = std::move(room);
  return Outcome::AllLines;
}

int KEPMfgSyntaxEvaluation::SetAuxNumber(int number) {
  auxNumber_ = number;
  return 0;
}

int KEPMfgSyntaxEvaluation::SetSeqMotionNumber(int number) {
  seqMotionNumber_ = number;
  return 0;
}
