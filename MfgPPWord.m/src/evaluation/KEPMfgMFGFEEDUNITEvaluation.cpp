#include "KEPIMfgBufferFeedrate.h"
#include "Manufacturing/KEPMfgNames.h"
#include "src/evaluation/EvaluatedParameter.h"
#include "src/evaluation/Operations.h"
#include "src/evaluation/ParameterEvaluations.h"

namespace {

// Entries of the list of words; 0 for neither.
constexpr int kLinear = 1;
constexpr int kAngular = 2;

int kindOfBuffer(const KEPIMfgBufferFeedrate_var& feed) {
  if (!feed || !feed->HasFeedParameter()) return 0;
  bool answer = false;
  if (feed->IsLinear(answer) && answer) return kLinear;
  return feed->IsAngular(answer) && answer ? kAngular : 0;
}

}  // namespace

bool KEPMfgMFGFEEDUNITEvaluation::Evaluate(KEPString& value) const {
  const auto parameter = ppword::EvaluatedParameter::ofAny(*this);
  int kind = kindOfBuffer(parameter.buffer<KEPIMfgBufferFeedrate>());
  if (kind == 0) {
    const KEPIMfgFeedrateParameters_var operation = ppword::operationOf(parameter.activity());
    kind =
        ppword::kindOf(operation, Mfg_MachiningFeedrateValue, "LINEARFEEDRATE", "ANGULARFEEDRATE");
  }
  return kind != 0 && parameter.readWord(kind, value);
}
