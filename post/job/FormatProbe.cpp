#include "post/job/FormatProbe.h"

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgParameterEvaluation.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"

namespace host {

FormatProbe::FormatProbe() : document_(newDocument()) {}

bool FormatProbe::showsNumbers(std::string_view format) const {
  const auto zero = printed(0.0, format);
  return zero && zero != printed(1.0, format);
}

std::optional<std::string> FormatProbe::printed(double number, std::string_view format) const {
  const auto words = document_->ppWordContainer();
  KEPIMfgBufferCircle_var(words)->SetRadius(number);
  KEPISpecObject_var parameter;
  words->GetPPWord(parameter, "MFG_CIRCLE_RADIUS");
  KEPMfgAttributeUtilities::SetString(parameter, "Format", format);
  KEPString text;
  if (!KEPIMfgParameterEvaluation_var(parameter)->Evaluate(text)) return std::nullopt;
  return std::string(text.View());
}

}  // namespace host
