#include <cmath>
#include <limits>
#include <string>

#include "KEPIMfgBufferFeedrate.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

namespace {

/// The factor in percent, cut to a whole number and to 32 bits.
int percentage(double factor) {
  const double percent = factor * 100.0;
  // A ratio above zero never prints as 0.
  if (percent > 0.0 && percent < 1.0) return 1;
  using Limits = std::numeric_limits<int>;
  if (std::isnan(percent)) return 0;
  if (percent >= Limits::max()) return Limits::max();
  if (percent <= Limits::min()) return Limits::min();
  return static_cast<int>(percent);
}

}  // namespace

bool KEPMfgMFGFEEDRATIOEvaluation::evaluate(ppword::ParameterText& text) const {
  const auto* const feed = ppword::ParameterContext::ofAny(*this).buffer<KEPIMfgBufferFeedrate>();
  if (feed == nullptr) return false;
  double factor = 0.0;
  feed->GetFactor(factor);
  text.set(std::to_string(percentage(factor)));
  return true;
}
