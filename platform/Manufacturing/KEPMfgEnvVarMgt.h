#pragma once

#include <string_view>

#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// The application's environment settings.
class KEP_PLATFORM KEPMfgEnvVarMgt {
 public:
  /// The text of a setting; empty when it is unset.
  [[nodiscard]] static KEPString Get(std::string_view name);
  /// True when the switch is set to any text that is not empty.
  [[nodiscard]] static bool GetStatus(std::string_view name);
};
