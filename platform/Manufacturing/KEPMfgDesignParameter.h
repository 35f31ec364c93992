#pragma once

#include <string_view>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"

/// Expressions over the design parameters of a document.
class KEP_PLATFORM KEPMfgDesignParameter {
 public:
  /// Computes an expression with the design parameters of the document that holds `object`. The
  /// expression begins with its opening "(" and ends before its closing ")". A negative status
  /// means that it cannot be computed; `value` is then untouched.
  [[nodiscard]] static HRESULT GetExtendedValue(const KEPBaseUnknown_var& object,
                                                std::string_view expression,
                                                KEPMfgParameterValue& value);
};
