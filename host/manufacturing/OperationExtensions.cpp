#include "host/manufacturing/OperationExtensions.h"

#include "Manufacturing/KEPMfgNames.h"
#include "host/knowledge/KnowledgeParameter.h"

namespace host {
namespace {

KEPICkeParm_var knowledgeParameter(const std::optional<TypedValue>& value) {
  return value ? createKnowledgeParameter(value->text, value->type) : nullptr;
}

}  // namespace

FeedrateParameters::FeedrateParameters(const FeedrateValues& values)
    : NamedTable(values.attributes),
      machining_(knowledgeParameter(values.machining)),
      spindle_(knowledgeParameter(values.spindle)) {}

KEPBaseUnknown_var FeedrateParameters::GetParameter(std::string_view name) const {
  if (name == Mfg_MachiningFeedrateValue) return machining_;
  if (name == Mfg_SpindleSpeedValue) return spindle_;
  return nullptr;
}

HRESULT LatheOperation::GetWayOfRotation(int& code) const {
  if (!values_.way) return E_FAIL;
  code = *values_.way;
  return S_OK;
}

HRESULT LatheOperation::GetDefaultCorrector(int& number, KEPUnicodeString& outputPoint) const {
  if (!values_.defaultCorrector) return E_FAIL;
  if (KEPFailed(GetCorrector(*values_.defaultCorrector, outputPoint))) return E_FAIL;
  number = *values_.defaultCorrector;
  return S_OK;
}

HRESULT LatheOperation::GetCorrector(int number, KEPUnicodeString& outputPoint) const {
  return lookUp(values_.correctors, number, outputPoint);
}

HRESULT TurningEnvironment::GetAxisSystem(KEPMathVector& origin, KEPMathVector& thirdDirection,
                                          KEPMathVector& firstDirection) const {
  origin = values_.origin;
  thirdDirection = values_.spindleAxis;
  firstDirection = values_.radialAxis;
  return S_OK;
}

}  // namespace host
