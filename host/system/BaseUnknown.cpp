#include <algorithm>
#include <utility>

#include "System/KEPComponent.h"

KEPBaseUnknown::~KEPBaseUnknown() = default;

void KEPBaseUnknown::Die() const noexcept {
  constexpr int kDying = 1 << 30;
  // Handles taken and released while the component dies must not bring it here again.
  references_ = kDying;
  delete this;
}

KEPBaseUnknown* KEPBaseUnknown::FirstAnswer(const KEPMetaClass* interfaceClass) {
  const unsigned number = interfaceClass->GetNumber();
  if (number == 0) return nullptr;
  const bool isRoot = interfaceClass == KEPInterfaceId<KEPBaseUnknown>();
  KEPBaseUnknown* const object = isRoot ? this : Answer(interfaceClass);
  if (object != nullptr) KeepAnswer(number, object);
  return object;
}

void KEPBaseUnknown::KeepAnswer(unsigned number, KEPBaseUnknown* object) {
  constexpr unsigned kStep = 8;
  if (number >= known_.size) {
    const unsigned size = (number / kStep + 1) * kStep;
    auto objects = std::make_unique<KEPBaseUnknown*[]>(size);
    std::copy_n(known_.objects.get(), known_.size, objects.get());
    known_ = {size, std::move(objects)};
  }
  known_.objects[number] = object;
}

KEPBaseUnknown* KEPBaseUnknown::Answer(const KEPMetaClass* /*interfaceClass*/) { return nullptr; }

bool KEPBaseUnknown::HasType(std::string_view /*lateType*/) const { return false; }
