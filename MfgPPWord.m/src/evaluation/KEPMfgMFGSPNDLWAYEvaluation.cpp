#include <optional>

#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgBufferSpindle.h"
#include "Manufacturing/KEPIMfgLatheOperation.h"
#include "Manufacturing/KEPIMfgTool.h"
#include "Manufacturing/KEPMfgNames.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "src/evaluation/ActivityQueries.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

namespace {

using Lack = KEPMfgPPWordListener::Lack;

constexpr int kReverseWay = -1;
constexpr int kSwapped = 2;

/// Which entry of the list of words holds, as far as a source can tell.
enum class Way {
  /// The source knows nothing; the next one is asked.
  Unknown,
  /// The first and the second entry.
  First,
  Second,
  /// There is no word at all.
  None
};

/// No word, for that reason.
Way lacking(Lack why) {
  KEPMfgPPWordListener::ReportLack(why);
  return Way::None;
}

/// The way of rotation of a turning operation, or of the one that a tool change is made for.
Way wayOfOperation(const KEPIMfgActivity_var& activity) {
  KEPIMfgLatheOperation_var lathe = activity;
  if (!lathe) lathe = ppword::operationOf(activity);
  int code = 0;
  if (!lathe || KEPFailed(lathe->GetWayOfRotation(code))) return Way::Unknown;
  return code == kReverseWay ? Way::Second : Way::First;
}

/// The way of rotation that a sequential motion sets itself.
Way wayOfMotion(const KEPIMfgActivity_var& activity, int number) {
  if (!ppword::isSequential(activity) || number <= 0) return Way::Unknown;
  const auto motion = ppword::motionSpindle(activity, number);
  // deliberate: a motion without a spindle gives no word, whatever the tool says
  if (!motion) return lacking(Lack::MotionSpindle);
  if (!motion->isLocal) return Way::Unknown;
  const auto way = ppword::textOf(*motion->parameters, "MfgSpindleWayOfRotation");
  if (!way) return Way::Unknown;
  return way->View() == "MfgSpindleCLW" ? Way::First : Way::Second;
}

Way handOfTool(const KEPIMfgActivity_var& activity) {
  const KEPIMfgTool_var tool = ppword::toolingOf(activity).tool;
  if (!tool) return lacking(Lack::Tool);
  const auto hand = ppword::textOf(*tool, "MFG_WAY_OF_ROT");
  if (hand && hand->View() == MfgRightHand) return Way::First;
  return hand && hand->View() == MfgLeftHand ? Way::Second : lacking(Lack::Hand);
}

/// The way that suits the hand of the tool; a spindle that turns the other way swaps them.
Way wayOfTool(const KEPIMfgActivity_var& activity, const KEPIMfgBufferSpindle* spindle) {
  const Way hand = handOfTool(activity);
  int way = 1;
  if (spindle != nullptr) spindle->GetWay(way);
  if (way != kSwapped || hand == Way::None) return hand;
  return hand == Way::First ? Way::Second : Way::First;
}

Way wayOf(const ppword::ParameterContext& parameter) {
  const auto activity = parameter.activity();
  if (!activity) return Way::First;
  Way way = wayOfOperation(activity);
  if (way != Way::Unknown) return way;
  way = wayOfMotion(activity, parameter.bufferedNumber<KEPIMfgBufferSeqMotionNumber>());
  if (way != Way::Unknown) return way;
  return wayOfTool(activity, parameter.buffer<KEPIMfgBufferSpindle>());
}

}  // namespace

bool KEPMfgMFGSPNDLWAYEvaluation::evaluate(ppword::ParameterText& text) const {
  const auto parameter = ppword::ParameterContext::of(*this);
  KEPUnicodeString first;
  KEPUnicodeString second;
  if (!parameter.findWord(1, first) || !parameter.findWord(2, second)) return false;
  const Way way = wayOf(parameter);
  if (way == Way::None) return false;
  text.set(way == Way::First ? first.View() : second.View());
  return true;
}
