#pragma once

#include <string>
#include <string_view>

#include "Manufacturing/KEPIMfgResource.h"
#include "host/system/TextHash.h"

namespace host {

/// A machine: its name, which is its type too, and values by name.
class KEP_PLATFORM Resource final : public KEPIMfgResource {
 public:
  [[nodiscard]] static KEPVar<Resource> create(std::string_view name);

  [[nodiscard]] KEPUnicodeString GetResourceType() const override { return {name_}; }
  [[nodiscard]] HRESULT GetValue(std::string_view name, KEPUnicodeString& value) const override;
  void setValue(std::string_view name, KEPUnicodeString value);

 private:
  explicit Resource(std::string_view name) : name_(name) {}
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;

  std::string name_;
  TextMap<KEPUnicodeString> values_;
};

}  // namespace host
