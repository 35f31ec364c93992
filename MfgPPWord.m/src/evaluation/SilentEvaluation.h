#pragma once

#include "System/KEPString.h"
#include "src/registration/Registered.h"

namespace ppword {

/// A parameter that is known by name and has no value to give: it counts as not evaluable.
template <class Self>
class SilentEvaluation : public Registered<Self> {
 public:
  /// Always false; `value` is untouched.
  [[nodiscard]] bool Evaluate(KEPString& /*value*/) const { return false; }
};

}  // namespace ppword
