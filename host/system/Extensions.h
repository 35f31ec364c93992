#pragma once

#include <memory>
#include <vector>

#include "System/KEPComponent.h"

namespace host {

/// The extension objects of one component; they live as long as it.
class Extensions {
 public:
  /// Makes the object for an interface that has none yet; null when the creator makes none for this
  /// component.
  KEPBaseUnknown* make(KEPCreator creator, KEPBaseUnknown& component) {
    KEPBaseUnknown* const object = creator(&component);
    if (object != nullptr) objects_.emplace_back(object);
    return object;
  }

 private:
  std::vector<std::unique_ptr<KEPBaseUnknown>> objects_;
};

}  // namespace host
