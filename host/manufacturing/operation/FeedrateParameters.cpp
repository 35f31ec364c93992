#include "host/manufacturing/operation/FeedrateParameters.h"

#include "Manufacturing/KEPMfgNames.h"

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

}  // namespace host
