#pragma once

#include "System/KEPComponent.h"

/// A document of the application.
class KEP_PLATFORM KEPIDocument : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIDocument";

  /// True when the document was created by an older version and must be brought up to date.
  [[nodiscard]] virtual bool NeedsUpgrade() const = 0;
};

using KEPIDocument_var = KEPVar<KEPIDocument>;
