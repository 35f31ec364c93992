#include "System/KEPBaseUnknown.h"

KEPBaseUnknown::~KEPBaseUnknown() = default;

KEPBaseUnknown* KEPBaseUnknown::QueryInterface(const KEPMetaClass* interfaceClass) const {
  KEPBaseUnknown* const object = impl_->Answer(interfaceClass);
  if (object != nullptr) object->AddRef();
  return object;
}

KEPBaseUnknown* KEPBaseUnknown::Answer(const KEPMetaClass* /*interfaceClass*/) { return nullptr; }

bool KEPBaseUnknown::HasType(std::string_view /*lateType*/) const { return false; }
