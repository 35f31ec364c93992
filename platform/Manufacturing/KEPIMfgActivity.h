#pragma once

#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// An activity of a manufacturing program: a machining operation, a tool change, an instruction.
/// Its kind is known by the names of its late type and of that type's base types.
class KEP_PLATFORM KEPIMfgActivity : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgActivity";

  [[nodiscard]] virtual KEPUnicodeString GetName() const = 0;

  /// The tool that the activity works with, and the assembly that holds the tool; each is null when
  /// there is none. A negative status means that the activity has neither; both are then null.
  virtual HRESULT GetToolAndAssembly(KEPBaseUnknown_var& tool,
                                     KEPBaseUnknown_var& assembly) const = 0;
};

using KEPIMfgActivity_var = KEPVar<KEPIMfgActivity>;

/// An activity that represents another one.
class KEP_PLATFORM KEPIMfgVirtualActivity : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgVirtualActivity";

  /// The activity that it represents; null when there is none.
  [[nodiscard]] virtual KEPIMfgActivity_var GetRealActivity() const = 0;
};

using KEPIMfgVirtualActivity_var = KEPVar<KEPIMfgVirtualActivity>;

/// An activity that removes material.
class KEP_PLATFORM KEPIMfgMachiningOperation : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgMachiningOperation";
};

using KEPIMfgMachiningOperation_var = KEPVar<KEPIMfgMachiningOperation>;
