#include "src/evaluation/EvaluatedParameter.h"

#include <utility>

#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "src/evaluation/NumericEvaluation.h"

namespace ppword {
namespace {

constexpr int kListEntry = 2;

}  // namespace

EvaluatedParameter EvaluatedParameter::of(const KEPBaseUnknown& evaluation) {
  auto type = KEPISpecObject_var::Of(evaluation.GetImpl());
  if (!type) KEPRaiseNullHandle();
  return EvaluatedParameter(std::move(type));
}

EvaluatedParameter EvaluatedParameter::ofAny(const KEPBaseUnknown& evaluation) {
  return EvaluatedParameter(KEPISpecObject_var::Of(evaluation.GetImpl()));
}

EvaluatedParameter::EvaluatedParameter(KEPISpecObject_var type) : type_(std::move(type)) {
  if (type_) words_ = KEPIContainer_var(type_->GetContainer());
}

KEPIMfgActivity_var EvaluatedParameter::activity() const {
  KEPIMfgActivity_var current;
  KEPMfgModelUtilities::GetCurrentActivity(words_, current);
  return current;
}

bool EvaluatedParameter::readWord(int entry, KEPString& word) const {
  int found = 0;
  KEPUnicodeString text;
  const HRESULT status = KEPMfgAttributeUtilities::StandardQueryForPPWordEvaluation(
      type_, kListEntry, "MultiListValue", entry, found, text);
  if (KEPFailed(status) || found == 0) return false;
  word = KEPString(text.View());
  return true;
}

bool EvaluatedParameter::print(double number, KEPString& text) const {
  return printWithAttribute(type_, number, text);
}

}  // namespace ppword
