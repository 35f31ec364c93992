#pragma once

#include "Mathematics/KEPMathVector.h"
#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"

/// The axis system in which a turning activity is programmed.
class KEP_PLATFORM KEPIMfgTurningEnvironment : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgTurningEnvironment";

  /// Its origin, its third direction (along the spindle axis) and its first direction (radial). A
  /// negative status means that there is none; nothing is then changed.
  virtual HRESULT GetAxisSystem(KEPMathVector& origin, KEPMathVector& thirdDirection,
                                KEPMathVector& firstDirection) const = 0;
};

using KEPIMfgTurningEnvironment_var = KEPVar<KEPIMfgTurningEnvironment>;
