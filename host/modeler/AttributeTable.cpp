#include "host/modeler/AttributeTable.h"

#include <utility>

namespace host {

const AttributeTable::Slot* AttributeTable::findIndexed(std::string_view name) const {
  const auto place = places_.find(name);
  return place == places_.end() ? nullptr : &slots_[place->second];
}

AttributeTable::Slot* AttributeTable::find(std::string_view name) {
  return const_cast<Slot*>(std::as_const(*this).find(name));
}

AttributeTable::Slot& AttributeTable::add(std::string_view name, KEPISpecAttribute::Kind kind,
                                          bool declared) {
  places_.emplace(std::string(name), slots_.size());
  if (declared) declared_.push_back(slots_.size());
  return slots_.emplace_back(Slot{std::string(name), kind, declared});
}

AttributeTable::Slot& AttributeTable::insert(int position, std::string_view name,
                                             KEPISpecAttribute::Kind kind) {
  const int count = declaredCount();
  if (position < 1 || position > count + 1) KEPRaisePositionOutOfList(position, count);
  const std::size_t at =
      position > count ? slots_.size() : declared_[static_cast<std::size_t>(position) - 1];
  const auto place = slots_.insert(slots_.begin() + static_cast<std::ptrdiff_t>(at),
                                   Slot{std::string(name), kind, true});
  index();
  return *place;
}

const AttributeTable::Slot& AttributeTable::declaredAt(int position) const {
  return slots_[declared_[static_cast<std::size_t>(position) - 1]];
}

void AttributeTable::index() {
  places_.clear();
  declared_.clear();
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    places_.emplace(slots_[i].name, i);
    if (slots_[i].declared) declared_.push_back(i);
  }
}

}  // namespace host
