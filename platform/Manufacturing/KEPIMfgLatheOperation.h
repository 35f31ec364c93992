#pragma once

#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// A turning operation.
class KEP_PLATFORM KEPIMfgLatheOperation : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgLatheOperation";

  /// The code of the direction in which the part rotates: -1 for the reverse of the usual one. A
  /// negative status means that the direction is unknown; `code` is then untouched.
  virtual HRESULT GetWayOfRotation(int& code) const = 0;

  /// The corrector to use when no other one was chosen: its number (from 1) and the name of the
  /// tool point that it compensates, "P1" to "P9". A negative status means that there is none; both
  /// are then untouched.
  virtual HRESULT GetDefaultCorrector(int& number, KEPUnicodeString& outputPoint) const = 0;

  /// The name of the tool point that a corrector (from 1) compensates. A negative status means that
  /// the operation has no such corrector; `outputPoint` is then untouched.
  virtual HRESULT GetCorrector(int number, KEPUnicodeString& outputPoint) const = 0;
};

using KEPIMfgLatheOperation_var = KEPVar<KEPIMfgLatheOperation>;
