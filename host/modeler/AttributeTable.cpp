#include "host/modeler/AttributeTable.h"

namespace host {
namespace {

/// Up to here a walk over the names is quicker than a hash.
constexpr std::size_t kFewSlots = 4;

}  // namespace

const AttributeTable::Slot* AttributeTable::find(std::string_view name) const {
  if (slots_.size() > kFewSlots) {
    const auto place = places_.find(name);
    return place == places_.end() ? nullptr : &slots_[place->second];
  }
  for (const Slot& slot : slots_) {
    if (isSameText(slot.name, name)) return &slot;
  }
  return nullptr;
}

AttributeTable::Slot* AttributeTable::find(std::string_view name) {
  return const_cast<Slot*>(std::as_const(*this).find(name));
}

AttributeTable::Slot& AttributeTable::add(std::string_view name, KEPISpecAttribute::Kind kind,
                                          bool declared) {
  places_.emplace(std::string(name), slots_.size());
  if (declared) ++declaredCount_;
  return slots_.emplace_back(Slot{std::string(name), kind, declared});
}

AttributeTable::Slot& AttributeTable::insert(int position, std::string_view name,
                                             KEPISpecAttribute::Kind kind) {
  if (position < 1 || position > declaredCount_ + 1) {
    KEPRaisePositionOutOfList(position, declaredCount_);
  }
  const auto at = static_cast<std::ptrdiff_t>(placeOfDeclared(position));
  const auto place = slots_.insert(slots_.begin() + at, Slot{std::string(name), kind, true});
  ++declaredCount_;
  index();
  return *place;
}

const AttributeTable::Slot& AttributeTable::declaredAt(int position) const {
  return slots_[placeOfDeclared(position)];
}

std::size_t AttributeTable::placeOfDeclared(int position) const {
  const auto before = static_cast<std::size_t>(position) - 1;
  if (static_cast<std::size_t>(declaredCount_) == slots_.size()) return before;
  std::size_t seen = 0;
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    if (slots_[i].declared && seen++ == before) return i;
  }
  return slots_.size();
}

void AttributeTable::index() {
  places_.clear();
  for (std::size_t i = 0; i < slots_.size(); ++i) places_.emplace(slots_[i].name, i);
}

}  // namespace host
