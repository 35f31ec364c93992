#pragma once

#include <string_view>

#include "Mathematics/KEPMathVector.h"
#include "src/evaluation/TextEvaluation.h"

namespace ppword {

/// One axis of the tool setting values: the parameter of the tool assembly that holds the value,
/// and the component of the corrector's offset that is added.
struct ToolSettingAxis {
  std::string_view name;
  double KEPMathVector::*component;
};

inline constexpr ToolSettingAxis kToolSettingX{"MFG_TL_SET_X", &KEPMathVector::x};
inline constexpr ToolSettingAxis kToolSettingY{"MFG_TL_SET_Y", &KEPMathVector::y};
inline constexpr ToolSettingAxis kToolSettingZ{"MFG_TL_SET_Z", &KEPMathVector::z};

/// Prints the tool setting value of the current activity's tool, from the spindle or turret to the
/// point of the current corrector, in the turning axis system; lengths in the unit of the output.
/// Always true: `text` is untouched when there is no PP word container or no activity, or the
/// value is not finite. An evaluation that extends no feature raises the null-handle error.
[[nodiscard]] bool evaluateToolSetting(const KEPBaseUnknown& evaluation,
                                       const ToolSettingAxis& axis, ParameterText& text);

/// Prints a number of the tool compensation as "%f" does in the C locale: six decimals, nothing
/// snapped to zero. A number that is not finite leaves `text` untouched.
void printSixDecimals(double number, ParameterText& text);

/// A tool setting value along one axis.
template <class Self, const ToolSettingAxis& kAxis>
class ToolCompensationEvaluation : public TextEvaluation<Self> {
 public:
  /// As TextEvaluation asks for it.
  [[nodiscard]] bool evaluate(ParameterText& text) const {
    return evaluateToolSetting(*this, kAxis, text);
  }
};

}  // namespace ppword
