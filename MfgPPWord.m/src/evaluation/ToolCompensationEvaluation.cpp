#include "src/evaluation/ToolCompensationEvaluation.h"

#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "KEPIMfgBufferCorrectorNumber.h"
#include "Manufacturing/KEPIMfgTool.h"
#include "Manufacturing/KEPIMfgToolAssembly.h"
#include "Manufacturing/KEPIMfgTurningEnvironment.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "Mathematics/KEPMathTransformation.h"
#include "language/number/NumberFormat.h"
#include "src/evaluation/ActivityQueries.h"
#include "src/evaluation/ParameterContext.h"

namespace ppword {
namespace {

using Lack = KEPMfgPPWordListener::Lack;

/// The number of the tool point that setting values refer to.
int referencePoint(const KEPBaseUnknown_var& assembly) {
  int number = 9;
  const KEPIMfgLatheRefCompensation_var reference = KEPIMfgLatheToolAssembly_var(assembly);
  if (reference) reference->GetNumber(number);
  return number;
}

/// An offset in the turning axis system of an activity; as it is without a usable system.
KEPMathVector inTurningAxes(const KEPMathVector& offset,
                            const KEPIMfgTurningEnvironment_var& activity) {
  if (!activity) return offset;
  KEPMathVector origin;
  KEPMathVector third{1.0, 0.0, 0.0};
  KEPMathVector first{1.0, 0.0, 0.0};
  if (KEPFailed(activity->GetAxisSystem(origin, third, first))) return offset;
  KEPMathTransformation frame({first, third.Cross(first), third}, {});
  return frame.Invert() ? frame.Apply(offset) : offset;
}

/// How far the corrector's point is from the reference point; nothing where no offset applies.
std::optional<KEPMathVector> correctorOffset(const KEPIMfgActivity_var& activity,
                                             const Tooling& tooling, int corrector) {
  const KEPIMfgToolCompensationValueReplay_var replay = tooling.tool;
  const int reference = referencePoint(tooling.assembly);
  if (!replay || reference <= 0 || corrector <= 0) return std::nullopt;
  KEPMathVector from;
  KEPMathVector to;
  replay->GetPosition(activity, reference, from);
  replay->GetPosition(activity, corrector, to);
  return inTurningAxes(to - from, activity);
}

}  // namespace

bool evaluateToolSetting(const KEPBaseUnknown& evaluation, const ToolSettingAxis& axis,
                         ParameterText& text) {
  const auto parameter = ParameterContext::of(evaluation);
  const auto activity = parameter.activity();
  // deliberate: a success even when there was nothing to print
  if (!activity) return !KEPMfgPPWordListener::ReportLack(Lack::Activity);
  const Tooling tooling = toolingOf(activity);
  const KEPIMfgGeomParameters_var dimensions = tooling.assembly;
  const auto stated = dimensions ? lengthOf(*dimensions, axis.name) : std::nullopt;
  if (!stated) KEPMfgPPWordListener::ReportLack(Lack::Dimension);
  const double setting = stated.value_or(0.0);
  const int corrector = parameter.bufferedNumber<KEPIMfgBufferCorrectorNumber>();
  const auto offset = correctorOffset(activity, tooling, corrector);
  // Adding a zero would change a negative zero.
  printSixDecimals(offset ? setting + (*offset).*axis.component : setting, text);
  return true;
}

void printSixDecimals(double number, ParameterText& text) {
  if (!std::isfinite(number)) return;
  std::string digits;
  NumberFormat::parse("%f")->append(number, digits);
  text.set(digits);
}

}  // namespace ppword
