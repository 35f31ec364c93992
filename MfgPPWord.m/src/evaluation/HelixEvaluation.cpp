#include "src/evaluation/HelixEvaluation.h"

#include <cmath>

#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "Mathematics/KEPMathVector.h"
#include "src/evaluation/ParameterContext.h"

namespace ppword {
namespace {

using TripleGetter = void (KEPIMfgBufferHelix::*)(double&, double&, double&) const;

KEPMathVector read(const KEPIMfgBufferHelix& helix, TripleGetter get) {
  KEPMathVector triple;
  (helix.*get)(triple.x, triple.y, triple.z);
  return triple;
}

double height(const KEPIMfgBufferHelix& helix) {
  KEPMathVector axis = read(helix, &KEPIMfgBufferHelix::GetAxis);
  axis.Normalize();
  const auto start = read(helix, &KEPIMfgBufferHelix::GetStart);
  const auto end = read(helix, &KEPIMfgBufferHelix::GetEnd);
  return std::abs((end - start).Dot(axis));
}

/// The factor that takes radians to the unit of the running generation.
double angleFactor() {
  double factor = 1.0;
  const auto generation = KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData();
  if (generation) generation->GetAngleFactor(factor);
  return factor;
}

}  // namespace

std::optional<double> helixHeight(const KEPIMfgBufferHelix& helix) { return height(helix); }

std::optional<double> helixTurns(const KEPIMfgBufferHelix& helix) {
  double pitch = 0.0;
  helix.GetPitch(pitch);
  if (pitch < KEPEpsg) return std::nullopt;
  return height(helix) / pitch;
}

std::optional<double> helixAngle(const KEPIMfgBufferHelix& helix) {
  const auto turns = helixTurns(helix);
  if (!turns) return std::nullopt;
  return *turns * 360.0 * KEPDegreeToRadian * angleFactor();
}

bool evaluateHelix(const KEPBaseUnknown& evaluation, HelixNumber compute, ParameterText& text) {
  const auto parameter = ParameterContext::of(evaluation);
  const auto* const helix = parameter.buffer<KEPIMfgBufferHelix>();
  if (helix == nullptr) return false;
  const auto number = compute(*helix);
  if (!number) return KEPMfgPPWordListener::ReportLack(KEPMfgPPWordListener::Lack::Pitch);
  return parameter.print(*number, text);
}

}  // namespace ppword
