#pragma once

#include "System/KEPComponent.h"
#include "System/KEPString.h"

/// Computes the text of one parameter from the current state of the tool path.
class KEP_PLATFORM KEPIMfgParameterEvaluation : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgParameterEvaluation";

  /// True: `value` holds the parameter's text. False: the parameter cannot be evaluated, and
  /// `value` is untouched.
  [[nodiscard]] virtual bool Evaluate(KEPString& value) = 0;
};

using KEPIMfgParameterEvaluation_var = KEPVar<KEPIMfgParameterEvaluation>;
