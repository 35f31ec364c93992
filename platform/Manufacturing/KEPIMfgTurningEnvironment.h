#pragma once

#include "Mathematics/KEPMathVector.h"
#include "System/KEPResult.h"
#include "System/KEPVar.h"

/// The axis system that a turning activity is programmed in.
class KEP_PLATFORM KEPIMfgTurningEnvironment : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgTurningEnvironment";

  /// Its origin, its third direction (that of the spindle axis) and its first one (the radial one).
  /// A negative status means that there is none; everything is untouched then.
  virtual HRESULT GetAxisSystem(KEPMathVector& origin, KEPMathVector& thirdDirection,
                                KEPMathVector& firstDirection) const = 0;
};

using KEPIMfgTurningEnvironment_var = KEPVar<KEPIMfgTurningEnvironment>;
