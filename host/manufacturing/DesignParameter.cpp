#include <muParser.h>

#include <cmath>
#include <string>

#include "Manufacturing/KEPMfgDesignParameter.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "host/manufacturing/Activity.h"
#include "host/modeler/Document.h"

namespace {

/// The document that holds a feature or a container.
KEPIDocument_var documentOf(const KEPBaseUnknown_var& object) {
  const KEPIContainer_var container = host::containerOf(object);
  return container ? container->GetDocument() : nullptr;
}

/// The expression without its opening parenthesis. Nothing that could be computed truthfully comes
/// with a further parenthesis, where the text was cut at the first ")" inside a nested group, and
/// with a comma, which stands where the syntax had a "+", "-" or "*".
std::string_view flatExpression(std::string_view text) {
  if (text.empty() || text.front() != '(') return {};
  text.remove_prefix(1);
  return text.find_first_of("(),") == std::string_view::npos ? text : std::string_view{};
}

}  // namespace

HRESULT KEPMfgDesignParameter::GetExtendedValue(const KEPBaseUnknown_var& object,
                                                std::string_view expression,
                                                KEPMfgParameterValue& value) {
  const KEPIDocument_var document = documentOf(object);
  const auto* const own = dynamic_cast<const host::Document*>(document.Get());
  const std::string_view flat = flatExpression(expression);
  if (own == nullptr || flat.empty()) return E_FAIL;
  try {
    mu::Parser parser;
    for (const auto& [name, number] : own->designParameters()) {
      // Only what the expression may name: a name that is no identifier must not spoil the others.
      if (flat.find(name) != std::string_view::npos) parser.DefineConst(name, number);
    }
    parser.SetExpr(std::string(flat));
    const double result = parser.Eval();
    if (!std::isfinite(result)) return E_FAIL;
    value = host::realValue(result);
    return S_OK;
  } catch (const mu::Parser::exception_type&) {
    return E_FAIL;
  }
}
