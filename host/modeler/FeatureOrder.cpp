#include "host/modeler/FeatureOrder.h"

#include <utility>

#include "host/modeler/Container.h"

namespace host {
namespace {

const Feature* baseOf(const Feature& feature) {
  return static_cast<const Feature*>(feature.GetBaseType().Get());
}

}  // namespace

FeatureOrder::FeatureOrder(const std::vector<Container*>& containers) {
  for (const Container* container : containers) {
    Members members;
    for (const auto& member : container->ListMembersHere(KEPInterfaceId<KEPISpecObject>())) {
      members.features.push_back(KEPVar<Feature>(member).Get());
    }
    homes_.emplace(container, homes_.size());
    members_.push_back(std::move(members));
  }
  for (std::size_t home = 0; home < members_.size(); ++home) {
    while (members_[home].next < members_[home].features.size()) addNext(home);
  }
}

// Adds the next member of a container after its base types.
void FeatureOrder::addNext(std::size_t home) {
  const Feature& feature = *members_[home].features[members_[home].next++];
  std::vector<const Feature*> bases;
  for (const Feature* base = baseOf(feature); base != nullptr && !places_.contains(base);
       base = baseOf(*base)) {
    bases.push_back(base);
  }
  for (auto base = bases.rbegin(); base != bases.rend(); ++base) addBase(**base);
  append(feature, home);
}

void FeatureOrder::addBase(const Feature& base) {
  const auto home = homes_.find(base.GetContainer());
  if (home == homes_.end()) return append(base, std::nullopt);
  while (!places_.contains(&base)) addNext(home->second);
}

void FeatureOrder::append(const Feature& feature, Place home) {
  const Feature* const base = baseOf(feature);
  const Place basePlace = base == nullptr ? Place() : places_.at(base);
  const int depth = basePlace ? entries_[*basePlace].depth + 1 : 0;
  places_.emplace(&feature, entries_.size());
  entries_.push_back({&feature, home, basePlace, depth});
}

}  // namespace host
