#pragma once

#include "System/KEPUnicodeString.h"
#include "System/KEPVar.h"

/// Something that a program works with: a machine, a tool, an insert.
class KEP_PLATFORM KEPIMfgResource : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgResource";

  /// The type of the resource; of a groove insert MfgGrooveInsert or KEPEMfgGrooveInsert.
  [[nodiscard]] virtual KEPUnicodeString GetResourceType() const = 0;
};

using KEPIMfgResource_var = KEPVar<KEPIMfgResource>;
