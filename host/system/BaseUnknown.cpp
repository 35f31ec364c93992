#include "System/KEPBaseUnknown.h"

KEPBaseUnknown::~KEPBaseUnknown() = default;

KEPBaseUnknown* KEPBaseUnknown::AnswerFirst(const KEPMetaClass* interfaceClass) {
  KEPBaseUnknown* const object = Answer(interfaceClass);
  if (object == nullptr) return nullptr;
  std::unique_ptr<Known>* last = &known_;
  while (*last != nullptr) last = &(*last)->next;
  *last = std::make_unique<Known>(Known{interfaceClass, object, nullptr});
  AddRef();
  return object;
}

KEPBaseUnknown* KEPBaseUnknown::Answer(const KEPMetaClass* /*interfaceClass*/) { return nullptr; }

bool KEPBaseUnknown::HasType(std::string_view /*lateType*/) const { return false; }
