#include <optional>
#include <string_view>

#include "KEPIMfgBufferSeqMotionNumber.h"
#include "Manufacturing/KEPMfgNames.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "System/KEPError.h"
#include "src/evaluation/ActivityQueries.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

namespace {

using Lack = KEPMfgPPWordListener::Lack;

// Entries of the list of words; 0 for neither.
constexpr int kByRevolution = 1;
constexpr int kByTime = 2;

/// The word of a list that stands for no word.
constexpr std::string_view kNoWord = "________";

int kindOf(std::string_view mode, std::string_view byRevolution, std::string_view byTime) {
  if (mode == byRevolution) return kByRevolution;
  return mode == byTime ? kByTime : 0;
}

int kindOfOperation(const KEPIMfgActivity_var& activity) {
  const KEPIMfgStrategyParameters_var strategy = activity;
  if (!strategy) return 0;
  const auto mode = ppword::textOf(*strategy, MfgDwellMode);
  if (mode) return kindOf(mode->View(), MfgDwellRound, MfgDwellTime);
  KEPError::KEPCleanLastError();
  return 0;
}

int kindOfMotion(const KEPIMfgActivity_var& activity, int number) {
  const auto motion = ppword::motionParameters(activity, number);
  if (!motion) return 0;
  const auto strategy = motion->GetStrategyParameters();
  if (!strategy) return 0;
  const auto mode = ppword::textOf(*strategy, "MfgSpindleDwellMode");
  if (!mode) return 0;
  return kindOf(mode->View(), "MfgSpindleDwellByRevolution", "MfgSpindleDwellByTimeUnit");
}

}  // namespace

bool KEPMfgMFGDELAYUNITEvaluation::evaluate(ppword::ParameterText& text) const {
  const auto parameter = ppword::ParameterContext::ofAny(*this);
  const auto activity = parameter.activity();
  const int kind =
      ppword::isSequential(activity)
          ? kindOfMotion(activity, parameter.bufferedNumber<KEPIMfgBufferSeqMotionNumber>())
          : kindOfOperation(activity);
  if (kind == 0)
    return KEPMfgPPWordListener::ReportLack(activity ? Lack::DwellMode : Lack::Activity);
  KEPUnicodeString word;
  if (!parameter.findWord(kind, word)) return false;
  text.set(word.View() == kNoWord ? std::string_view() : word.View());
  return true;
}
