#pragma once

#include "Manufacturing/KEPIMfgParameterAccess.h"

/// An insert with its dimensions: reals, lengths in the unit of the output.
///   MfgNoseRadius                           of a turning insert
///   MfgLeftNoseRadius, MfgRightNoseRadius   of a groove insert
class KEP_PLATFORM KEPIMfgInsert : public KEPMfgNamedValues {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgInsert";
};

using KEPIMfgInsert_var = KEPVar<KEPIMfgInsert>;
