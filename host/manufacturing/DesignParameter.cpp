#include "Manufacturing/KEPMfgDesignParameter.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "host/expressions/Expression.h"
#include "host/manufacturing/Activity.h"
#include "host/modeler/Document.h"

namespace {

/// The document that holds a feature or a container.
KEPIDocument_var documentOf(const KEPBaseUnknown_var& object) {
  const KEPIContainer_var container = host::containerOf(object);
  return container ? container->GetDocument() : nullptr;
}

}  // namespace

// A library that is not installed is reported by the exception of computeExpression: no answer here
// would be true.
HRESULT KEPMfgDesignParameter::GetExtendedValue(const KEPBaseUnknown_var& object,
                                                std::string_view expression,
                                                KEPMfgParameterValue& value) {
  const KEPIDocument_var document = documentOf(object);
  // Another host's documents have design parameters of their own kind.
  const auto* const own = dynamic_cast<const host::Document*>(document.Get());
  double result = 0;
  if (own == nullptr || !host::computeExpression(expression, own->designParameters(), result)) {
    return E_FAIL;
  }
  value = host::realValue(result);
  return S_OK;
}
