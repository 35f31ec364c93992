#pragma once

#include <string_view>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "System/KEPPlatform.h"
#include "System/KEPResult.h"
#include "System/KEPVar.h"

/// Expressions over the design parameters of a document.
class KEP_PLATFORM KEPMfgDesignParameter {
 public:
  /// Computes an expression, given from its opening "(" up to its closing ")" exclusive, for the
  /// document that holds `object`. A negative status means that it cannot be computed; `value` is
  /// untouched then.
  [[nodiscard]] static HRESULT GetExtendedValue(const KEPBaseUnknown_var& object,
                                                std::string_view expression,
                                                KEPMfgParameterValue& value);
};
