#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPList.h"
#include "host/system/TextHash.h"

namespace host {

/// The attributes that one feature declares or sets, in listing order.
class AttributeTable {
 public:
  struct Slot {
    std::string name;
    KEPISpecAttribute::Kind kind;
    /// False for an inherited attribute that only gets a value here.
    bool declared;
    bool set = false;
    KEPListValKEPUnicodeString texts{};
    int integer = 0;
  };

  /// Null when there is no slot of that name. Asked for at every reference of a syntax.
  [[nodiscard]] const Slot* find(std::string_view name) const {
    if (slots_.size() > kFewSlots) return findIndexed(name);
    for (const Slot& slot : slots_) {
      if (isSameText(slot.name, name)) return &slot;
    }
    return nullptr;
  }
  [[nodiscard]] Slot* find(std::string_view name) {
    return const_cast<Slot*>(std::as_const(*this).find(name));
  }

  /// Adds a slot at the end.
  Slot& add(std::string_view name, KEPISpecAttribute::Kind kind, bool declared) {
    places_.emplace(std::string(name), slots_.size());
    if (declared) declared_.push_back(slots_.size());
    return slots_.emplace_back(Slot{std::string(name), kind, declared});
  }

  /// All slots, declared or not, in order.
  [[nodiscard]] const std::vector<Slot>& slots() const noexcept { return slots_; }

  [[nodiscard]] int declaredCount() const noexcept { return static_cast<int>(declared_.size()); }
  /// The declared slot at a position from 1 to their number.
  [[nodiscard]] const Slot& declaredAt(int position) const {
    return slots_[declared_[static_cast<std::size_t>(position) - 1]];
  }

 private:
  /// Up to here a walk over the names is quicker than a hash.
  static constexpr std::size_t kFewSlots = 4;

  /// Apart, so that the walk is small enough to be inlined.
  [[gnu::noinline]] [[nodiscard]] const Slot* findIndexed(std::string_view name) const {
    const auto place = places_.find(name);
    return place == places_.end() ? nullptr : &slots_[place->second];
  }

  std::vector<Slot> slots_;
  TextMap<std::size_t> places_;
  /// The places of the declared slots.
  std::vector<std::size_t> declared_;
};

}  // namespace host
