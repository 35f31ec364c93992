#pragma once

#include "System/KEPComponent.h"

/// A manufacturing program: a list of activities that is itself one (its component offers
/// KEPIMfgActivity).
class KEP_PLATFORM KEPIMfgProgram : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgProgram";
};

using KEPIMfgProgram_var = KEPVar<KEPIMfgProgram>;
