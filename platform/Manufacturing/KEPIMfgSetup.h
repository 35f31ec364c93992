#pragma once

#include "Manufacturing/KEPIMfgResource.h"
#include "System/KEPComponent.h"

/// The setup of a part on a machine.
class KEP_PLATFORM KEPIMfgSetup : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgSetup";

  /// The machine of the setup; null when it has none.
  [[nodiscard]] virtual KEPIMfgResource_var GetResource() const = 0;
};

using KEPIMfgSetup_var = KEPVar<KEPIMfgSetup>;
