#pragma once

#include "Manufacturing/KEPIMfgActivity.h"
#include "Manufacturing/KEPIMfgParameterAccess.h"
#include "Mathematics/KEPMathVector.h"

/// A tool and its parameters.
///   MFG_WAY_OF_ROT  text: MfgRightHand or MfgLeftHand, the hand of the cutting edge
class KEP_PLATFORM KEPIMfgTool : public KEPMfgNamedValues {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgTool";
};

using KEPIMfgTool_var = KEPVar<KEPIMfgTool>;

/// The correctors of a tool.
class KEP_PLATFORM KEPIMfgToolCompensation : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgToolCompensation";

  /// The name of the tool point that a corrector compensates, "P1" to "P9". A negative status means
  /// that the tool has no such corrector; `outputPoint` is then untouched.
  virtual HRESULT GetOutputPoint(int corrector, KEPUnicodeString& outputPoint) const = 0;
};

using KEPIMfgToolCompensation_var = KEPVar<KEPIMfgToolCompensation>;

/// The positions of the points of a tool while an activity works with it.
class KEP_PLATFORM KEPIMfgToolCompensationValueReplay : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgToolCompensationValueReplay";

  /// The position of a tool point (from 1), in the unit of the output. A negative status means that
  /// it is unknown; `position` is then untouched.
  virtual HRESULT GetPosition(const KEPIMfgActivity_var& activity, int point,
                              KEPMathVector& position) const = 0;
};

using KEPIMfgToolCompensationValueReplay_var = KEPVar<KEPIMfgToolCompensationValueReplay>;
