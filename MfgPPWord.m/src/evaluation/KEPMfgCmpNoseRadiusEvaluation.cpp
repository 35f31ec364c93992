#include <optional>
#include <string_view>

#include "KEPIMfgBufferCorrectorNumber.h"
#include "Manufacturing/KEPIMfgInsert.h"
#include "Manufacturing/KEPIMfgLatheOperation.h"
#include "Manufacturing/KEPIMfgResource.h"
#include "Manufacturing/KEPIMfgTool.h"
#include "Manufacturing/KEPIMfgToolAssembly.h"
#include "Manufacturing/KEPMfgNames.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "src/evaluation/ActivityQueries.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

namespace {

using Lack = KEPMfgPPWordListener::Lack;

/// The radii of an insert's cutting edge.
struct NoseRadii {
  std::optional<double> left;
  std::optional<double> right;
  bool isGroove = false;

  [[nodiscard]] std::optional<double> at(std::string_view point) const {
    return point == "P9" || point == "P3" ? left : right;
  }
};

NoseRadii radiiOf(const KEPIMfgToolAssembly_var& assembly) {
  if (!assembly) return {};
  const KEPIMfgInsert_var insert = assembly->GetInsert();
  const KEPIMfgResource_var resource = insert;
  if (!resource) return {};
  const KEPUnicodeString type = resource->GetResourceType();
  if (type.View() != MfgGrooveInsert && type.View() != KEPEMfgGrooveInsert) {
    const auto radius = ppword::lengthOf(*insert, MfgNoseRadius);
    return {radius, radius, false};
  }
  // deliberate: whether the assembly is inverted is asked and makes no difference
  KEPMfgParameterValue inverted;
  static_cast<void>(assembly->GetValue(MfgInvertedAssembly, inverted));
  return {ppword::lengthOf(*insert, MfgLeftNoseRadius),
          ppword::lengthOf(*insert, MfgRightNoseRadius), true};
}

/// The name of the tool point that a corrector (below 1: none) compensates.
KEPUnicodeString outputPoint(const KEPIMfgActivity_var& activity, const ppword::Tooling& tooling,
                             int corrector) {
  KEPUnicodeString point("P9");
  if (const KEPIMfgLatheOperation_var lathe = activity) {
    int number = 0;
    if (corrector < 1) {
      lathe->GetDefaultCorrector(number, point);
    } else {
      lathe->GetCorrector(corrector, point);
    }
  } else if (tooling.assembly) {
    const KEPIMfgLatheRefCompensation_var reference = tooling.assembly;
    if (reference) reference->GetNumber(corrector);
    const KEPIMfgToolCompensation_var tool = tooling.tool;
    if (tool) tool->GetOutputPoint(corrector, point);
  }
  return point;
}

double noseRadius(const KEPIMfgActivity_var& activity, int corrector) {
  const auto tooling = ppword::toolingOf(activity);
  const NoseRadii radii = radiiOf(tooling.assembly);
  const KEPUnicodeString point = outputPoint(activity, tooling, corrector);
  const std::optional<double> stated = radii.at(point.View());
  const KEPIMfgLatheToolInsertUtilities_var utilities = tooling.assembly;
  double radius = stated.value_or(0.0);
  const bool isReplaced =
      radii.isGroove && utilities && KEPSucceeded(utilities->GetRadius(activity, point, radius));
  if (!stated && !isReplaced) KEPMfgPPWordListener::ReportLack(Lack::Dimension);
  return radius;
}

}  // namespace

bool KEPMfgCmpNoseRadiusEvaluation::evaluate(ppword::ParameterText& text) const {
  const auto parameter = ppword::ParameterContext::of(*this);
  const auto activity = parameter.activity();
  const int corrector = parameter.bufferedNumber<KEPIMfgBufferCorrectorNumber>();
  // deliberate: a success even when there was nothing to print
  if (!activity) return !KEPMfgPPWordListener::ReportLack(Lack::Activity);
  ppword::printSixDecimals(noseRadius(activity, corrector), text);
  return true;
}
