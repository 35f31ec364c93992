#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "host/system/TextHash.h"

// How NameIndex finds, adds and erases
//
// The table is one array of slots, as many as a power of two and never more than half full. The
// hash of a name, cut to the size of the array, is the home of its item. An item is in its home or,
// where other items came first, in the next free slot after it; after the last slot comes slot 0.
// So a search begins at the home and ends at the item or at the first free slot: there is never a
// free slot between an item and its home.
//
// Erasing must keep it so. A slot that simply became free would end searches too early. Take eight
// slots, where A and B have home 2, C has home 3, D has home 6 and E has home 2, added in this
// order:
//
//     slot   0  1  2  3  4  5  6  7
//     item   .  .  A  B  C  E  D  .
//
// B is in slot 3 because 2 was taken, C in 4 because 3 was taken, E in 5. Now A goes. If slot 2
// just became free, B and E could not be found any more: their search begins at 2. Instead the gap
// is filled from the items after it, one after the other up to the next free slot: an item moves
// into the gap unless it would land before its home. The gap is then where that item was.
//
//     B (home 2) moves from 3 to 2      .  .  B  .  C  E  D  .     gap 3
//     C (home 3) moves from 4 to 3      .  .  B  C  .  E  D  .     gap 4
//     E (home 2) moves from 5 to 4      .  .  B  C  E  .  D  .     gap 5
//     D (home 6) stays: it is at home, and 5 is before it
//     slot 7 is free: done              .  .  B  C  E  .  D  .
//
// "Before its home" is counted along the way of a search, around the end of the array: an item at
// slot s with home h has gone (s - h) mod size steps, and it may move to gap g only when that is at
// least (s - g) mod size steps.
//
// There are no marks for erased slots, so a table in which items come and go does not become slow
// and needs no cleaning. Every reference of a syntax asks such a table for a type: with a
// std::unordered_map in its place a line of one motion takes 5.3 % more instructions.

namespace host {

/// Items of a class with GetName() by their names, which must not change while they are in the
/// index. The index owns neither the items nor their names.
template <class Item>
class NameIndex {
 public:
  /// Null when there is no item of that name.
  [[nodiscard, gnu::always_inline]] Item* find(std::string_view name) const {
    const std::size_t hash = TextHash{}(name);
    for (std::size_t at = hash & mask_; slots_[at].item != nullptr; at = after(at)) {
      const Slot& slot = slots_[at];
      if (slot.hash == hash && isSameText(slot.item->GetName(), name)) return slot.item;
    }
    return nullptr;
  }

  /// Adds an item whose name is not there yet. Unchanged when there is no memory to grow.
  void insert(Item& item) {
    if (2 * (count_ + 1) > slots_.size()) grow();
    place({TextHash{}(item.GetName()), &item});
    ++count_;
  }

  /// Takes an item out that is there.
  void erase(const Item& item) {
    std::size_t gap = TextHash{}(item.GetName()) & mask_;
    while (slots_[gap].item != &item) gap = after(gap);
    for (std::size_t at = after(gap); slots_[at].item != nullptr; at = after(at)) {
      const std::size_t home = slots_[at].hash & mask_;
      if (((at - home) & mask_) < ((at - gap) & mask_)) continue;
      slots_[gap] = slots_[at];
      gap = at;
    }
    slots_[gap] = {};
    --count_;
  }

 private:
  struct Slot {
    std::size_t hash = 0;
    Item* item = nullptr;
  };

  [[nodiscard]] std::size_t after(std::size_t slot) const { return (slot + 1) & mask_; }

  void place(Slot slot) {
    std::size_t at = slot.hash & mask_;
    while (slots_[at].item != nullptr) at = after(at);
    slots_[at] = slot;
  }

  void grow() {
    const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(2 * slots_.size()));
    mask_ = slots_.size() - 1;
    for (const Slot& slot : old) {
      if (slot.item != nullptr) place(slot);
    }
  }

  static constexpr std::size_t kFirstSize = 16;

  std::vector<Slot> slots_ = std::vector<Slot>(kFirstSize);
  /// Cuts a hash or a place to the number of slots.
  std::size_t mask_ = kFirstSize - 1;
  std::size_t count_ = 0;
};

}  // namespace host
