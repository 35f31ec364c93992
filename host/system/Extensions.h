#pragma once

#include <memory>
#include <vector>

#include "System/KEPBaseUnknown.h"

namespace host {

/// The extension objects of one component; they live as long as it.
class Extensions {
 public:
  /// Makes the object for an interface that has none yet.
  KEPBaseUnknown* make(KEPCreator creator, KEPBaseUnknown& component) {
    return objects_.emplace_back(creator(&component)).get();
  }

 private:
  std::vector<std::unique_ptr<KEPBaseUnknown>> objects_;
};

}  // namespace host
