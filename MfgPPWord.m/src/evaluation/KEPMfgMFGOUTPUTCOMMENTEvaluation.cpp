#include "KEPIMfgBufferComment.h"
#include "src/evaluation/EvaluatedParameter.h"
#include "src/evaluation/ParameterEvaluations.h"

bool KEPMfgMFGOUTPUTCOMMENTEvaluation::Evaluate(KEPString& value) const {
  const auto comment = ppword::EvaluatedParameter::of(*this).buffer<KEPIMfgBufferComment>();
  if (!comment) return false;
  comment->GetComment(value);
  return true;
}
