#include "host/manufacturing/Resource.h"

#include <utility>

namespace host {

KEPVar<Resource> Resource::create(std::string_view name) {
  return KEPVar<Resource>::Adopt(new Resource(name));
}

HRESULT Resource::GetValue(std::string_view name, KEPUnicodeString& value) const {
  const auto found = values_.find(name);
  if (found == values_.end()) return E_FAIL;
  value = found->second;
  return S_OK;
}

void Resource::setValue(std::string_view name, KEPUnicodeString value) {
  values_.insert_or_assign(std::string(name), std::move(value));
}

KEPBaseUnknown* Resource::Answer(const KEPMetaClass* interfaceClass) {
  return interfaceClass == KEPInterfaceId<KEPIMfgResource>() ? this : nullptr;
}

}  // namespace host
