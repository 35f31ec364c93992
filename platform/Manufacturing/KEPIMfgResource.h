#pragma once

#include <string_view>

#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// Equipment that a program uses: a machine, a tool, an insert.
class KEP_PLATFORM KEPIMfgResource : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgResource";

  /// The type of the resource; for a groove insert MfgGrooveInsert or KEPEMfgGrooveInsert.
  [[nodiscard]] virtual KEPUnicodeString GetResourceType() const = 0;

  /// Reads a value by name. A machine has the value MfgPPWordTable: the file name of its PP word
  /// table. A negative status means that the resource has no such value; `value` is then untouched.
  [[nodiscard]] virtual HRESULT GetValue(std::string_view name, KEPUnicodeString& value) const = 0;
};

using KEPIMfgResource_var = KEPVar<KEPIMfgResource>;
