#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "host/modeler/Feature.h"
#include "host/system/TextHash.h"

namespace host {

/// The types of a container by name. A flat table that is never more than half full; a type stands
/// at the place that the hash of its name gives or, without a gap, behind it. Names live in the
/// types.
class TypeIndex {
 public:
  /// Null when there is no type of that name. Asked for at every reference of a syntax.
  [[nodiscard, gnu::always_inline]] Feature* find(std::string_view name) const {
    const std::size_t hash = TextHash{}(name);
    for (std::size_t at = hash & mask_; slots_[at].type != nullptr; at = after(at)) {
      const Slot& slot = slots_[at];
      if (slot.hash == hash && isSameText(slot.type->GetName(), name)) return slot.type;
    }
    return nullptr;
  }
  /// Adds a type whose name is not there yet. Nothing changes when memory runs out.
  void insert(Feature& type);
  /// Takes a type out that is there.
  void erase(const Feature& type);

 private:
  struct Slot {
    std::size_t hash = 0;
    Feature* type = nullptr;
  };

  [[nodiscard]] std::size_t after(std::size_t place) const { return (place + 1) & mask_; }
  void place(Slot slot);
  void grow();

  static constexpr std::size_t kFirstSize = 16;

  /// As many as a power of two.
  std::vector<Slot> slots_ = std::vector<Slot>(kFirstSize);
  std::size_t mask_ = kFirstSize - 1;
  std::size_t count_ = 0;
};

}  // namespace host
