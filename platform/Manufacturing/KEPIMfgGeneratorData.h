#pragma once

#include "System/KEPComponent.h"
#include "System/KEPString.h"

/// How the current output prints coordinates.
class KEP_PLATFORM KEPIMfgOutputSettings : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgOutputSettings";

  /// The printf-style format of the components of points and of tool axes; empty when the output
  /// does not set one. `which` is 1: the format of the NC data output.
  [[nodiscard]] virtual KEPUnicodeString GetPointFormat(int which) const = 0;
  [[nodiscard]] virtual KEPUnicodeString GetAxisFormat(int which) const = 0;
};

using KEPIMfgOutputSettings_var = KEPVar<KEPIMfgOutputSettings>;

/// The settings of the running generation of NC data.
class KEP_PLATFORM KEPIMfgGeneratorData : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgGeneratorData";

  /// The settings of its output; null when it has none.
  [[nodiscard]] virtual KEPIMfgOutputSettings_var GetOutputSettings() const = 0;

  /// Sets `factor` to the number that converts an angle in radians to the unit of the output;
  /// untouched when the generation does not set one.
  virtual void GetAngleFactor(double& factor) const = 0;
};

using KEPIMfgGeneratorData_var = KEPVar<KEPIMfgGeneratorData>;

class KEP_PLATFORM KEPMfgGeneratorData {
 public:
  /// The data of the running generation; null when none is running.
  [[nodiscard]] static KEPIMfgGeneratorData_var GetCurrentKEPIMfgGeneratorData();
};
