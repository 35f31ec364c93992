#pragma once

#include "host/manufacturing/ParameterTable.h"

namespace host {

/// The feed rate and the spindle speed of an operation or of a sequential motion.
class FeedrateParameters final : public NamedTable<FeedrateParameters, KEPIMfgFeedrateParameters> {
 public:
  explicit FeedrateParameters(const FeedrateValues& values);

  [[nodiscard]] KEPBaseUnknown_var GetParameter(std::string_view name) const override;

 private:
  KEPICkeParm_var machining_;
  KEPICkeParm_var spindle_;
};

}  // namespace host
