#pragma once

#include "System/KEPUnicodeString.h"
#include "System/KEPVar.h"

/// How the current output prints coordinates.
class KEP_PLATFORM KEPIMfgOutputSettings : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgOutputSettings";

  /// The printf-style format of point and of tool axis components; empty when the output sets
  /// none. `which` is 1: the format of the NC data output.
  [[nodiscard]] virtual KEPUnicodeString GetPointFormat(int which) const = 0;
  [[nodiscard]] virtual KEPUnicodeString GetAxisFormat(int which) const = 0;
};

using KEPIMfgOutputSettings_var = KEPVar<KEPIMfgOutputSettings>;

/// What the running generation of NC data was set up with.
class KEP_PLATFORM KEPIMfgGeneratorData : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgGeneratorData";

  /// Null when the generation has no settings of its own.
  [[nodiscard]] virtual KEPIMfgOutputSettings_var GetOutputSettings() const = 0;

  /// The factor that takes an angle in radians to the unit of the output; untouched when the
  /// generation sets none.
  virtual void GetAngleFactor(double& factor) const = 0;
};

using KEPIMfgGeneratorData_var = KEPVar<KEPIMfgGeneratorData>;

class KEP_PLATFORM KEPMfgGeneratorData {
 public:
  /// The data of the running generation; null when none runs.
  [[nodiscard]] static KEPIMfgGeneratorData_var GetCurrentKEPIMfgGeneratorData();
};
