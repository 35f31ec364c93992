#include "KEPIMfgBufferComment.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

bool KEPMfgMFGOUTPUTCOMMENTEvaluation::Evaluate(KEPString& value) const {
  const auto* const comment = ppword::ParameterContext::of(*this).buffer<KEPIMfgBufferComment>();
  if (comment == nullptr) return false;
  comment->GetComment(value);
  return true;
}
