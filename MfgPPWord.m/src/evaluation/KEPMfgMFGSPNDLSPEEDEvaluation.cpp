#include <optional>

#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgBufferSpindle.h"
#include "Manufacturing/KEPMfgNames.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "src/evaluation/ActivityQueries.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

namespace {

/// The speed that a sequential motion, or else its operation, sets itself.
std::optional<double> ownSpeed(const ppword::MotionSpindle& motion,
                               const KEPIMfgActivity_var& operation) {
  const auto parameters =
      motion.isLocal ? motion.parameters : KEPIMfgFeedrateParameters_var(operation);
  return ppword::numberOf(parameters, Mfg_SpindleSpeedValue);
}

}  // namespace

bool KEPMfgMFGSPNDLSPEEDEvaluation::evaluate(ppword::ParameterText& text) const {
  const auto parameter = ppword::ParameterContext::of(*this);
  const auto activity = parameter.activity();
  std::optional<double> speed;
  if (ppword::isSequential(activity)) {
    const auto motion =
        ppword::motionSpindle(activity, parameter.bufferedNumber<KEPIMfgBufferSeqMotionNumber>());
    if (!motion) return KEPMfgPPWordListener::ReportLack(KEPMfgPPWordListener::Lack::MotionSpindle);
    speed = ownSpeed(*motion, activity);
  }
  if (!speed) {
    const auto* const spindle = parameter.buffer<KEPIMfgBufferSpindle>();
    if (spindle == nullptr) return false;
    spindle->GetValue(speed.emplace());
  }
  return parameter.print(*speed, text);
}
