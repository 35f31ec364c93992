#pragma once

#include "System/KEPUnicodeString.h"
#include "System/KEPVar.h"

/// An activity of a manufacturing program: a machining operation, a tool change, an instruction.
class KEP_PLATFORM KEPIMfgActivity : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgActivity";

  [[nodiscard]] virtual KEPUnicodeString GetName() const = 0;
};

using KEPIMfgActivity_var = KEPVar<KEPIMfgActivity>;

/// An activity that stands for another one.
class KEP_PLATFORM KEPIMfgVirtualActivity : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgVirtualActivity";

  /// The activity that it stands for; null when there is none.
  [[nodiscard]] virtual KEPIMfgActivity_var GetRealActivity() const = 0;
};

using KEPIMfgVirtualActivity_var = KEPVar<KEPIMfgVirtualActivity>;
