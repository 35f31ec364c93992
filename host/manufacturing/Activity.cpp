#include "host/manufacturing/Activity.h"

#include <utility>

namespace host {

KEPVar<Activity> Activity::create(std::string_view name) {
  return KEPVar<Activity>::Adopt(new Activity(name));
}

void Activity::standFor(KEPIMfgActivity_var activity) { virtual_.real_ = std::move(activity); }

KEPBaseUnknown* Activity::Answer(const KEPMetaClass* interfaceClass) {
  if (interfaceClass == KEPInterfaceId<KEPIMfgActivity>()) return this;
  if (interfaceClass == KEPInterfaceId<KEPIMfgCustomParameters>()) return &customParameters_;
  if (interfaceClass == KEPInterfaceId<KEPIMfgV4ToV5Parameters>()) return &parameters_;
  const bool isVirtual = static_cast<bool>(virtual_.real_);
  if (isVirtual && interfaceClass == KEPInterfaceId<KEPIMfgVirtualActivity>()) return &virtual_;
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
