#include "host/manufacturing/Activity.h"

#include <utility>

namespace host {

KEPVar<Activity> Activity::create(std::string_view name) {
  return KEPVar<Activity>::Adopt(new Activity(name));
}

KEPVar<Activity> Activity::createVirtual(std::string_view name, KEPIMfgActivity_var real) {
  KEPVar<Activity> activity = create(name);
  activity->virtual_.emplace(*activity, std::move(real));
  return activity;
}

HRESULT Activity::GetToolAndAssembly(KEPBaseUnknown_var& tool, KEPBaseUnknown_var& assembly) const {
  tool = nullptr;
  assembly = nullptr;
  return E_FAIL;
}

KEPBaseUnknown* Activity::Answer(const KEPMetaClass* interfaceClass) {
  if (interfaceClass == KEPInterfaceId<KEPIMfgActivity>()) return this;
  if (interfaceClass == KEPInterfaceId<KEPIMfgCustomParameters>()) return &customParameters_;
  if (interfaceClass == KEPInterfaceId<KEPIMfgV4ToV5Parameters>()) return &parameters_;
  const bool isStandIn = interfaceClass == KEPInterfaceId<KEPIMfgVirtualActivity>();
  if (isStandIn && virtual_) return &*virtual_;
  return nullptr;
}

KEPMfgParameterValue integerValue(int value) {
  return {KEPMfgParameterValue::kInteger, value, 0.0, {}};
}

KEPMfgParameterValue realValue(double value) { return {KEPMfgParameterValue::kReal, 0, value, {}}; }

KEPMfgParameterValue textValue(std::string_view value) {
  return {KEPMfgParameterValue::kText, 0, 0.0, KEPUnicodeString(value)};
}

}  // namespace host
