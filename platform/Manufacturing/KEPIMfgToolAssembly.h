#pragma once

#include "Manufacturing/KEPIMfgActivity.h"
#include "Manufacturing/KEPIMfgParameterAccess.h"

/// The holder of a tool in the spindle or the turret.
///   MfgInvertedAssembly  integer: 1 when the tool is mounted upside down
class KEP_PLATFORM KEPIMfgToolAssembly : public KEPMfgNamedValues {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgToolAssembly";

  /// The insert with the cutting edge; null when there is none.
  [[nodiscard]] virtual KEPBaseUnknown_var GetInsert() const = 0;
};

using KEPIMfgToolAssembly_var = KEPVar<KEPIMfgToolAssembly>;

/// The assembly of a turning tool.
class KEP_PLATFORM KEPIMfgLatheToolAssembly : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgLatheToolAssembly";
};

using KEPIMfgLatheToolAssembly_var = KEPVar<KEPIMfgLatheToolAssembly>;

/// The point of a turning tool to which its setting values refer.
class KEP_PLATFORM KEPIMfgLatheRefCompensation : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgLatheRefCompensation";

  /// The number of that point (from 1), which is also the number of its corrector. A negative
  /// status means that none is set; `number` is then untouched.
  virtual HRESULT GetNumber(int& number) const = 0;
};

using KEPIMfgLatheRefCompensation_var = KEPVar<KEPIMfgLatheRefCompensation>;

/// Computations on the insert of an assembly.
class KEP_PLATFORM KEPIMfgLatheToolInsertUtilities : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgLatheToolInsertUtilities";

  /// The radius of the cutting edge at a tool point ("P1" to "P9") while an activity works with the
  /// tool, in the unit of the output. A negative status means that the point has no radius;
  /// `radius` is then untouched.
  virtual HRESULT GetRadius(const KEPIMfgActivity_var& activity,
                            const KEPUnicodeString& outputPoint, double& radius) const = 0;
};

using KEPIMfgLatheToolInsertUtilities_var = KEPVar<KEPIMfgLatheToolInsertUtilities>;
