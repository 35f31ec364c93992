#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgBufferSpindle.h"
#include "Manufacturing/KEPMfgNames.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "src/evaluation/ActivityQueries.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

namespace {

using Lack = KEPMfgPPWordListener::Lack;

// deliberate: angular comes before linear here; in the unit of the feed rate it is the other way
// round
constexpr int kAngularSpeed = 1;
constexpr int kLinearSpeed = 2;

int kindOfParameters(const KEPIMfgFeedrateParameters_var& parameters) {
  return ppword::kindOf(parameters, Mfg_SpindleSpeedValue, "ANGULARSPINDLESPEED",
                        "LINEARSPINDLESPEED");
}

int kindOfBuffer(const KEPIMfgBufferSpindle* spindle) {
  bool answer = false;
  if (spindle == nullptr) return 0;
  if (spindle->IsAngular(answer) && answer) return kAngularSpeed;
  return spindle->IsLinear(answer) && answer ? kLinearSpeed : 0;
}

/// The buffer's kind, or the operation's when the buffer gives no answer.
int kindOfOperation(const ppword::ParameterContext& parameter,
                    const KEPIMfgActivity_var& operation) {
  const int buffered = kindOfBuffer(parameter.buffer<KEPIMfgBufferSpindle>());
  return buffered != 0 ? buffered : kindOfParameters(operation);
}

}  // namespace

bool KEPMfgMFGSPNDLUNITEvaluation::evaluate(ppword::ParameterText& text) const {
  const auto parameter = ppword::ParameterContext::of(*this);
  const auto operation = ppword::operationOf(parameter.activity());
  int kind = 0;
  if (ppword::isSequential(operation)) {
    const auto motion =
        ppword::motionSpindle(operation, parameter.bufferedNumber<KEPIMfgBufferSeqMotionNumber>());
    if (!motion) return KEPMfgPPWordListener::ReportLack(Lack::MotionSpindle);
    if (motion->isLocal) kind = kindOfParameters(motion->parameters);
  }
  if (kind == 0) kind = kindOfOperation(parameter, operation);
  if (kind == 0) return KEPMfgPPWordListener::ReportLack(Lack::SpindleUnit);
  return parameter.setWord(kind, text);
}
