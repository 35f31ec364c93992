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

const AttributeTable::Slot& AttributeTable::declaredAt(int position) const {
  return slots_[declared_[static_cast<std::size_t>(position) - 1]];
}

}  // namespace host
