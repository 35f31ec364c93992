#pragma once

#include "Manufacturing/KEPIMfgParameterAccess.h"
#include "System/KEPList.h"

/// The motions of a sequential axial or groove operation: an activity of a kind
/// MfgSequentialAxialOperation or MfgSequentialGrooveOperation.
class KEP_PLATFORM KEPIMfgSequentialMotions : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgSequentialMotions";

  /// The motions in machining order; a motion's number is its position, from 1.
  [[nodiscard]] virtual KEPListVal<KEPBaseUnknown_var> GetMotions() const = 0;
};

using KEPIMfgSequentialMotions_var = KEPVar<KEPIMfgSequentialMotions>;

/// The settings of one sequential motion.
class KEP_PLATFORM KEPIMfgSeqMotionParameters : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgSeqMotionParameters";

  /// Null when the motion has none.
  [[nodiscard]] virtual KEPIMfgFeedrateParameters_var GetFeedrateParameters() const = 0;
  [[nodiscard]] virtual KEPIMfgStrategyParameters_var GetStrategyParameters() const = 0;
};

using KEPIMfgSeqMotionParameters_var = KEPVar<KEPIMfgSeqMotionParameters>;
