#include "src/evaluation/Compensation.h"

#include <cmath>
#include <string>

#include "language/number/NumberFormat.h"

namespace ppword {

double lengthOf(const KEPMfgNamedValues& values, std::string_view name) {
  KEPMfgParameterValue value;
  if (values.GetValue(name, value) != 0) return 0.0;
  if (value.kind == KEPMfgParameterValue::kInteger) return value.integer;
  return value.kind == KEPMfgParameterValue::kReal ? value.real : 0.0;
}

void printLength(double number, KEPString& text) {
  if (!std::isfinite(number)) return;
  std::string digits;
  NumberFormat::parse("%f")->append(number, digits);
  text = KEPString(std::move(digits));
}

}  // namespace ppword
