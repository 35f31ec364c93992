#pragma once

#include <string_view>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "System/KEPVar.h"

/// The parameters that a user added to an object, by name.
class KEP_PLATFORM KEPIMfgCustomParameters : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgCustomParameters";

  /// Gives the typed value of a parameter. 0 for success; any other result means that the object
  /// has no such parameter, and `value` is untouched.
  [[nodiscard]] virtual int GetValue(std::string_view name, KEPMfgParameterValue& value) const = 0;
};

using KEPIMfgCustomParameters_var = KEPVar<KEPIMfgCustomParameters>;

/// The object's own parameters under the names that NC output knows them by.
class KEP_PLATFORM KEPIMfgV4ToV5Parameters : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgV4ToV5Parameters";

  /// As KEPIMfgCustomParameters::GetValue.
  [[nodiscard]] virtual int GetValue(std::string_view name, KEPMfgParameterValue& value) const = 0;
};

using KEPIMfgV4ToV5Parameters_var = KEPVar<KEPIMfgV4ToV5Parameters>;
