#pragma once

#include <vector>

#include "Manufacturing/KEPIMfgSequentialMotions.h"
#include "host/manufacturing/ActivityValues.h"
#include "host/manufacturing/model/ModelObject.h"

namespace host {

/// The motions of a sequential operation.
class SequentialMotions final : public ModelExtension<SequentialMotions, KEPIMfgSequentialMotions> {
 public:
  explicit SequentialMotions(const std::vector<SequentialMotionValues>& motions) {
    for (const SequentialMotionValues& motion : motions) {
      motions_.Append(makeModelObject(model::kSequentialMotion, motion));
    }
  }

  [[nodiscard]] KEPListVal<KEPBaseUnknown_var> GetMotions() const override { return motions_; }

 private:
  KEPListVal<KEPBaseUnknown_var> motions_;
};

/// What one motion is made with: the motion's own extensions.
class SequentialMotionParameters final
    : public ModelExtension<SequentialMotionParameters, KEPIMfgSeqMotionParameters> {
 public:
  explicit SequentialMotionParameters(const SequentialMotionValues& /*motion*/) {}

  [[nodiscard]] KEPIMfgFeedrateParameters_var GetFeedrateParameters() const override {
    return KEPIMfgFeedrateParameters_var::Of(this);
  }
  [[nodiscard]] KEPIMfgStrategyParameters_var GetStrategyParameters() const override {
    return KEPIMfgStrategyParameters_var::Of(this);
  }
};

}  // namespace host
