#include "Manufacturing/KEPIMfgToolPath.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

namespace {

constexpr int kFixedAxis = 1;

/// The entry for the type of an activity's tool path: 1 for a fixed tool axis, 2 for any other
/// type, 0 when it is unknown.
int entryOf(const KEPIMfgToolPathManagement_var& activity) {
  KEPIMfgTraject_var path;
  if (!activity || KEPFailed(activity->GetToolPath(path)) || !path) return 0;
  bool known = false;
  int type = 0;
  if (KEPFailed(path->GetType(known, type)) || !known) return 0;
  return type == kFixedAxis ? 1 : 2;
}

}  // namespace

bool KEPMfgMFGTOOLPATHTYPEEvaluation::evaluate(ppword::ParameterText& text) const {
  const auto parameter = ppword::ParameterContext::ofAny(*this);
  const auto activity = parameter.activity();
  const int entry = entryOf(activity);
  using Lack = KEPMfgPPWordListener::Lack;
  if (entry == 0)
    return KEPMfgPPWordListener::ReportLack(activity ? Lack::ToolPathType : Lack::Activity);
  return parameter.setWord(entry, text);
}
