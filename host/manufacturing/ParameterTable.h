#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "Manufacturing/KEPIMfgParameterAccess.h"
#include "host/manufacturing/ActivityValues.h"
#include "host/manufacturing/ModelObject.h"
#include "host/system/TextHash.h"

namespace host {

/// Typed values by name: the base of a class whose interface offers them and more.
template <class Self, class Interface>
class NamedTable : public ModelExtension<Self, Interface> {
 public:
  NamedTable() = default;
  explicit NamedTable(const NamedValues& values) {
    for (const auto& [name, value] : values) set(name, value);
  }

  [[nodiscard]] int GetValue(std::string_view name, KEPMfgParameterValue& value) const override {
    const auto found = values_.find(name);
    if (found == values_.end()) return 1;
    value = found->second;
    return 0;
  }
  void set(std::string_view name, KEPMfgParameterValue value) {
    values_.insert_or_assign(std::string(name), std::move(value));
  }
  [[nodiscard]] bool holds(std::string_view name) const { return values_.contains(name); }

 private:
  TextMap<KEPMfgParameterValue> values_;
};

/// Typed values by name for an interface that offers nothing else.
template <class Interface>
class ParameterTable final : public NamedTable<ParameterTable<Interface>, Interface> {
 public:
  using NamedTable<ParameterTable, Interface>::NamedTable;
  explicit ParameterTable(KEPBaseUnknown& owner) { this->BindTo(owner); }
};

}  // namespace host
