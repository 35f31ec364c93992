#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "System/KEPBaseUnknown.h"

namespace host {

/// The extension objects of one component: one for each interface, made when first asked for and
/// living as long as the component.
class Extensions {
 public:
  /// The object made earlier for an interface; null when there is none.
  [[nodiscard]] KEPBaseUnknown* find(const KEPMetaClass* interfaceClass) const noexcept {
    for (const auto& [id, object] : objects_) {
      if (id == interfaceClass) return object.get();
    }
    return nullptr;
  }

  /// Makes the object for an interface that has none yet.
  KEPBaseUnknown* make(const KEPMetaClass* interfaceClass, KEPCreator creator,
                       KEPBaseUnknown& component) {
    std::unique_ptr<KEPBaseUnknown> object(creator(&component));
    return objects_.emplace_back(interfaceClass, std::move(object)).second.get();
  }

 private:
  std::vector<std::pair<const KEPMetaClass*, std::unique_ptr<KEPBaseUnknown>>> objects_;
};

}  // namespace host
