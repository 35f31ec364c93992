#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ObjectSpecsModeler/KEPISpecAttribute.h"
#include "System/KEPList.h"
#include "host/system/TextHash.h"

namespace host {

/// The attributes that one feature declares or gives a value to, in listing order.
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

  [[nodiscard]] const Slot* find(std::string_view name) const;
  [[nodiscard]] Slot* find(std::string_view name);

  /// Adds a slot at the end, or before the `position`-th slot (from 1).
  Slot& add(std::string_view name, KEPISpecAttribute::Kind kind, bool declared);
  Slot& insert(int position, std::string_view name, KEPISpecAttribute::Kind kind);

  [[nodiscard]] int declaredCount() const noexcept { return declaredCount_; }
  /// The `position`-th declared slot, from 1.
  [[nodiscard]] const Slot& declaredAt(int position) const;

 private:
  void index();

  std::vector<Slot> slots_;
  TextMap<std::size_t> places_;
  int declaredCount_ = 0;
};

}  // namespace host
