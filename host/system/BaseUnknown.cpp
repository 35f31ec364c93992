#include "System/KEPBaseUnknown.h"

KEPBaseUnknown::~KEPBaseUnknown() = default;

void KEPBaseUnknown::Die() const noexcept {
  constexpr int kDying = 1 << 30;
  // Handles taken and released while the component dies must not bring it here again.
  references_ = kDying;
  delete this;
}

KEPBaseUnknown* KEPBaseUnknown::AnswerFirst(const KEPMetaClass* interfaceClass) {
  const bool isRoot = interfaceClass == KEPInterfaceId<KEPBaseUnknown>();
  KEPBaseUnknown* const object = isRoot ? this : Answer(interfaceClass);
  if (object == nullptr) return nullptr;
  std::unique_ptr<Known>* last = &known_;
  while (*last != nullptr) last = &(*last)->next;
  *last = std::make_unique<Known>(Known{interfaceClass, object, nullptr});
  AddRef();
  return object;
}

KEPBaseUnknown* KEPBaseUnknown::Answer(const KEPMetaClass* /*interfaceClass*/) { return nullptr; }

bool KEPBaseUnknown::HasType(std::string_view /*lateType*/) const { return false; }
