#pragma once

#include <string_view>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "System/KEPComponent.h"

/// Typed values by name: what the interfaces below and those of tools have in common. This class is
/// not an interface itself.
class KEP_PLATFORM KEPMfgNamedValues : public KEPBaseUnknown {
 public:
  /// Sets `value` to the typed value of a parameter. 0 for success; any other result means that the
  /// object has no such parameter, and `value` is untouched.
  [[nodiscard]] virtual int GetValue(std::string_view name, KEPMfgParameterValue& value) const = 0;
};

/// The parameters that a user added to an object.
class KEP_PLATFORM KEPIMfgCustomParameters : public KEPMfgNamedValues {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgCustomParameters";
};

using KEPIMfgCustomParameters_var = KEPVar<KEPIMfgCustomParameters>;

/// The object's own parameters under the names that NC output uses for them.
class KEP_PLATFORM KEPIMfgV4ToV5Parameters : public KEPMfgNamedValues {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgV4ToV5Parameters";
};

using KEPIMfgV4ToV5Parameters_var = KEPVar<KEPIMfgV4ToV5Parameters>;

/// How an operation, or one motion of it, machines. A read that fails may record a last error.
///   MfgDwellMode         text, of an operation: MfgDwellRound or MfgDwellTime
///   MfgSpindleDwellMode  text, of a sequential motion: "MfgSpindleDwellByRevolution" or
///                        "MfgSpindleDwellByTimeUnit"
class KEP_PLATFORM KEPIMfgStrategyParameters : public KEPMfgNamedValues {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgStrategyParameters";
};

using KEPIMfgStrategyParameters_var = KEPVar<KEPIMfgStrategyParameters>;

/// The dimensions of a tool assembly: reals, lengths in the unit of the output.
///   MFG_TL_SET_X, MFG_TL_SET_Y, MFG_TL_SET_Z  from the spindle or turret to the tool's reference
class KEP_PLATFORM KEPIMfgGeomParameters : public KEPMfgNamedValues {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgGeomParameters";
};

using KEPIMfgGeomParameters_var = KEPVar<KEPIMfgGeomParameters>;

/// Feed rates and spindle speeds of an operation, or of one motion of it.
///   MfgSpindleSpeedType      text, of a sequential motion: "MfgSpindleSpeedLocal" when the motion
///                            has a spindle speed of its own
///   MfgSpindleWayOfRotation  text, of a sequential motion: "MfgSpindleCLW" for clockwise, any
///                            other text for the other direction
class KEP_PLATFORM KEPIMfgFeedrateParameters : public KEPMfgNamedValues {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgFeedrateParameters";

  /// A feed rate or speed: Mfg_MachiningFeedrateValue, Mfg_SpindleSpeedValue; usually a knowledge
  /// parameter. Null when the object has none with this name.
  [[nodiscard]] virtual KEPBaseUnknown_var GetParameter(std::string_view name) const = 0;
};

using KEPIMfgFeedrateParameters_var = KEPVar<KEPIMfgFeedrateParameters>;
