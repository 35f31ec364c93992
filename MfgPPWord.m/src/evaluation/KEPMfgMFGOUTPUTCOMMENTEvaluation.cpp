#include "KEPIMfgBufferComment.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

bool KEPMfgMFGOUTPUTCOMMENTEvaluation::evaluate(ppword::ParameterText& text) const {
  const auto* const comment = ppword::ParameterContext::of(*this).buffer<KEPIMfgBufferComment>();
  if (comment == nullptr) return false;
  KEPString value;
  comment->GetComment(value);
  text.set(value.View());
  return true;
}
