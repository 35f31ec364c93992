#include "src/evaluation/ActivityQueries.h"

#include "Knowledge/KEPICkeParm.h"
#include "Manufacturing/KEPIMfgToolChange.h"
#include "language/number/DecimalPrefix.h"
#include "src/buffer/KnowledgeValue.h"

namespace ppword {

Tooling toolingOf(const KEPIMfgActivity_var& activity) {
  Tooling tooling;
  activity->GetToolAndAssembly(tooling.tool, tooling.assembly);
  return tooling;
}

KEPIMfgActivity_var operationOf(const KEPIMfgActivity_var& activity) {
  const KEPIMfgToolChange_var toolChange = activity;
  const KEPIMfgSequence_var sequence = toolChange ? toolChange->GetSequence() : nullptr;
  if (!sequence) return activity;
  KEPIMfgActivity_var operation;
  const HRESULT status = sequence->GetActivityOfToolChange(
      activity, KEPInterfaceId<KEPIMfgMachiningOperation>(), operation);
  return KEPSucceeded(status) && operation ? operation : activity;
}

bool isSequential(const KEPIMfgActivity_var& activity) {
  return activity && (activity->IsAKindOf("MfgSequentialAxialOperation") ||
                      activity->IsAKindOf("MfgSequentialGrooveOperation"));
}

KEPIMfgSeqMotionParameters_var motionParameters(const KEPIMfgActivity_var& activity, int number) {
  const KEPIMfgSequentialMotions_var operation = activity;
  if (!operation) return nullptr;
  const auto motions = operation->GetMotions();
  if (number < 1 || number > motions.Size()) return nullptr;
  return {motions[number]};
}

std::optional<MotionSpindle> motionSpindle(const KEPIMfgActivity_var& activity, int number) {
  const auto motion = motionParameters(activity, number);
  if (!motion) return std::nullopt;
  auto parameters = motion->GetFeedrateParameters();
  if (!parameters) return std::nullopt;
  const auto type = textOf(*parameters, "MfgSpindleSpeedType");
  if (!type) return std::nullopt;
  return MotionSpindle{std::move(parameters), type->View() == "MfgSpindleSpeedLocal"};
}

std::optional<KEPUnicodeString> textOf(const KEPMfgNamedValues& values, std::string_view name) {
  KEPMfgParameterValue value;
  if (values.GetValue(name, value) != 0) return std::nullopt;
  if (value.kind != KEPMfgParameterValue::kText) return std::nullopt;
  return std::move(value.text);
}

std::optional<double> lengthOf(const KEPMfgNamedValues& values, std::string_view name) {
  KEPMfgParameterValue value;
  if (values.GetValue(name, value) != 0) return std::nullopt;
  if (value.kind == KEPMfgParameterValue::kInteger) return value.integer;
  return value.kind == KEPMfgParameterValue::kReal ? std::optional(value.real) : std::nullopt;
}

std::optional<double> numberOf(const KEPIMfgFeedrateParameters_var& parameters,
                               std::string_view name) {
  if (!parameters) return std::nullopt;
  const KEPICkeParm_var parameter = parameters->GetParameter(name);
  if (!parameter) return std::nullopt;
  const KEPUnicodeString text = parameter->GetValueText();
  return decimalPrefix(text.View());
}

int kindOf(const KEPIMfgFeedrateParameters_var& parameters, std::string_view name,
           std::string_view firstType, std::string_view secondType) {
  if (!parameters) return 0;
  KnowledgeValue value;
  value.setParameter(parameters->GetParameter(name));
  bool answer = false;
  if (value.isOfType(firstType, answer) && answer) return 1;
  return value.isOfType(secondType, answer) && answer ? 2 : 0;
}

}  // namespace ppword
