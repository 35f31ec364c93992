#include <algorithm>
#include <utility>

#include "System/KEPBaseUnknown.h"

KEPBaseUnknown::~KEPBaseUnknown() = default;

void KEPBaseUnknown::Die() const noexcept {
  constexpr int kDying = 1 << 30;
  // Handles taken and released while the component dies must not bring it here again.
  references_ = kDying;
  delete this;
}

KEPBaseUnknown* KEPBaseUnknown::AnswerElsewhere(const KEPMetaClass* interfaceClass) {
  const Answers::Slot& slot = known_.slots[known_.PlaceOf(interfaceClass)];
  if (slot.object != nullptr) return slot.object;
  const bool isRoot = interfaceClass == KEPInterfaceId<KEPBaseUnknown>();
  KEPBaseUnknown* const object = isRoot ? this : Answer(interfaceClass);
  if (object == nullptr) return nullptr;
  known_.Enter({interfaceClass, object});
  return object;
}

unsigned KEPBaseUnknown::Answers::PlaceOf(const KEPMetaClass* interfaceClass) const noexcept {
  unsigned place = interfaceClass->GetNumber() & mask;
  while (slots[place].interfaceClass != interfaceClass && slots[place].object != nullptr) {
    place = (place + 1) & mask;
  }
  return place;
}

void KEPBaseUnknown::Answers::Enter(const Slot& answer) {
  constexpr unsigned kFirstSize = 16;
  const unsigned size = room == nullptr ? 0 : mask + 1;
  if (4 * ++count > size) {
    const auto old = std::exchange(room, nullptr);
    mask = std::max(2 * size, kFirstSize) - 1;
    room = std::make_unique<Slot[]>(std::size_t{mask} + 1);
    slots = room.get();
    for (unsigned i = 0; i < size; ++i) {
      if (old[i].object != nullptr) room[PlaceOf(old[i].interfaceClass)] = old[i];
    }
  }
  room[PlaceOf(answer.interfaceClass)] = answer;
}

KEPBaseUnknown* KEPBaseUnknown::Answer(const KEPMetaClass* /*interfaceClass*/) { return nullptr; }

bool KEPBaseUnknown::HasType(std::string_view /*lateType*/) const { return false; }
