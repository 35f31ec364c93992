#include "host/diagnostics/FormatProbe.h"

#include "KEPIMfgParameterEvaluation.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"

namespace host {

FormatProbe::FormatProbe() : document_(newDocument()) {}

bool FormatProbe::canPrint(std::string_view format) const {
  KEPISpecObject_var parameter;
  document_->ppWordContainer()->GetPPWord(parameter, "MFG_CIRCLE_RADIUS");
  KEPMfgAttributeUtilities::SetString(parameter, "Format", format);
  KEPString text;
  return KEPIMfgParameterEvaluation_var(parameter)->Evaluate(text);
}

}  // namespace host
