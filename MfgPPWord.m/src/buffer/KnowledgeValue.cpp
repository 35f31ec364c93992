#include "src/buffer/KnowledgeValue.h"

#include "language/number/DecimalPrefix.h"

namespace ppword {

void KnowledgeValue::getValue(double& value) const {
  value = 0.0;
  if (!parameter_) return;
  const KEPUnicodeString text = parameter_->GetValueText();
  value = decimalPrefix(text.View()).value_or(0.0) * factor_;
}

bool KnowledgeValue::isOfType(std::string_view typeName, bool& answer) const {
  answer = false;
  if (!parameter_) return false;
  const KEPICkeType_var type = parameter_->GetType();
  if (!type) return false;
  answer = type->GetName().View() == typeName;
  return true;
}

}  // namespace ppword
