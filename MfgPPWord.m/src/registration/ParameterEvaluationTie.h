#pragma once

#include "KEPIMfgParameterEvaluation.h"

namespace ppword {

/// Serves KEPIMfgParameterEvaluation: owns an evaluation and forwards the operation to it.
template <class Evaluation>
class ParameterEvaluationTie final : public KEPIMfgParameterEvaluation {
 public:
  /// Both this object and the one it owns become extensions of `extended`.
  explicit ParameterEvaluationTie(KEPBaseUnknown& extended) {
    BindTo(extended);
    evaluation_.BindTo(extended);
  }

  [[nodiscard]] const KEPMetaClass* GetMetaObject() const override {
    return evaluation_.GetMetaObject();
  }
  [[nodiscard]] bool Evaluate(KEPString& value) override { return evaluation_.Evaluate(value); }

 private:
  Evaluation evaluation_;
};

}  // namespace ppword
