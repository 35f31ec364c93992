#include "host/modeler/TypeIndex.h"

#include <utility>

#include "host/modeler/Feature.h"
#include "host/system/TextHash.h"

namespace host {

void TypeIndex::insert(Feature& type) {
  if (2 * (count_ + 1) > slots_.size()) grow();
  place({TextHash{}(type.GetName()), &type});
  ++count_;
}

void TypeIndex::erase(const Feature& type) {
  std::size_t gap = TextHash{}(type.GetName()) & mask_;
  while (slots_[gap].type != &type) gap = after(gap);
  // Those behind move up, unless that would put them before their own place.
  for (std::size_t at = after(gap); slots_[at].type != nullptr; at = after(at)) {
    const std::size_t home = slots_[at].hash & mask_;
    if (((at - home) & mask_) < ((at - gap) & mask_)) continue;
    slots_[gap] = slots_[at];
    gap = at;
  }
  slots_[gap] = {};
  --count_;
}

void TypeIndex::place(Slot slot) {
  std::size_t at = slot.hash & mask_;
  while (slots_[at].type != nullptr) at = after(at);
  slots_[at] = slot;
}

void TypeIndex::grow() {
  const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(2 * slots_.size()));
  mask_ = slots_.size() - 1;
  for (const Slot& slot : old) {
    if (slot.type != nullptr) place(slot);
  }
}

}  // namespace host
