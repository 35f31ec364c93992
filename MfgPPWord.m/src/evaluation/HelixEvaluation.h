#pragma once

#include <optional>

#include "KEPIMfgBufferHelix.h"
#include "src/evaluation/TextEvaluation.h"

namespace ppword {

/// Computes one number of a helix; nothing when the helix has none.
using HelixNumber = std::optional<double> (*)(const KEPIMfgBufferHelix& helix);

/// The length of the chord from start to end along the axis, never negative.
[[nodiscard]] std::optional<double> helixHeight(const KEPIMfgBufferHelix& helix);
/// The number of turns; nothing for a pitch below the general tolerance.
[[nodiscard]] std::optional<double> helixTurns(const KEPIMfgBufferHelix& helix);
/// The swept angle in radians times the angle factor of the running generation; nothing for a pitch
/// below the general tolerance.
[[nodiscard]] std::optional<double> helixAngle(const KEPIMfgBufferHelix& helix);

/// Prints a number of the current helix for the parameter type that `evaluation` extends. False,
/// with `text` untouched, when there is no helix buffer, no number, no format, or the format
/// cannot print it. An evaluation that extends no feature raises the null-handle error.
[[nodiscard]] bool evaluateHelix(const KEPBaseUnknown& evaluation, HelixNumber compute,
                                 ParameterText& text);

/// A parameter whose value is computed from the current helix.
template <class Self, HelixNumber kCompute>
class HelixEvaluation : public TextEvaluation<Self> {
 public:
  /// As TextEvaluation asks for it.
  [[nodiscard]] bool evaluate(ParameterText& text) const {
    return evaluateHelix(*this, kCompute, text);
  }
};

}  // namespace ppword
