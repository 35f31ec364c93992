#include "KEPIMfgBufferFeedrate.h"
#include "Manufacturing/KEPMfgNames.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "src/evaluation/ActivityQueries.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

namespace {

// Entries of the list of words; 0 for neither.
constexpr int kLinearFeed = 1;
constexpr int kAngularFeed = 2;

int kindOfBuffer(const KEPIMfgBufferFeedrate* feed) {
  if (feed == nullptr || !feed->HasFeedParameter()) return 0;
  bool answer = false;
  if (feed->IsLinear(answer) && answer) return kLinearFeed;
  return feed->IsAngular(answer) && answer ? kAngularFeed : 0;
}

}  // namespace

bool KEPMfgMFGFEEDUNITEvaluation::evaluate(ppword::ParameterText& text) const {
  const auto parameter = ppword::ParameterContext::ofAny(*this);
  int kind = kindOfBuffer(parameter.buffer<KEPIMfgBufferFeedrate>());
  if (kind == 0) {
    const KEPIMfgFeedrateParameters_var operation = ppword::operationOf(parameter.activity());
    kind =
        ppword::kindOf(operation, Mfg_MachiningFeedrateValue, "LINEARFEEDRATE", "ANGULARFEEDRATE");
  }
  if (kind == 0) return KEPMfgPPWordListener::ReportLack(KEPMfgPPWordListener::Lack::FeedUnit);
  return parameter.setWord(kind, text);
}
