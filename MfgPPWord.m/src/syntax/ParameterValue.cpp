#include "src/syntax/ParameterValue.h"

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPIMfgParameterAccess.h"
#include "Manufacturing/KEPMfgDesignParameter.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "language/syntax/Blanks.h"

namespace ppword {
namespace {

/// The activity that the document is generating; the real one where a virtual one stands for it.
KEPIMfgActivity_var currentActivity(const KEPISpecObject_var& feature) {
  KEPIMfgRootContainer_var root;
  KEPMfgModelUtilities::GetRootContainer(feature, root);
  if (!root) return nullptr;
  const KEPIMfgPPWordContainer_var words = root->GetPPWordContainer();
  if (!words) return nullptr;
  KEPIMfgActivity_var activity;
  KEPMfgModelUtilities::GetCurrentActivity(words, activity);
  const KEPIMfgVirtualActivity_var standIn = activity;
  return standIn ? standIn->GetRealActivity() : activity;
}

/// Asks an object through one of its parameter interfaces.
template <class Interface>
bool answers(const KEPBaseUnknown_var& object, std::string_view name, KEPMfgParameterValue& value) {
  const KEPVar<Interface> parameters = object;
  return parameters && parameters->GetValue(name, value) == 0;
}

}  // namespace

std::optional<KEPMfgParameterValue> parameterValue(const KEPISpecObject_var& feature,
                                                   std::string_view name) {
  const std::string_view plain = withoutBlanks(name);
  KEPMfgParameterValue value;
  if (plain.starts_with('(')) {
    const HRESULT status = KEPMfgDesignParameter::GetExtendedValue(feature, plain, value);
    return KEPSucceeded(status) ? std::optional(value) : std::nullopt;
  }
  const KEPIMfgActivity_var activity = currentActivity(feature);
  if (!activity) return std::nullopt;
  KEPBaseUnknown_var object;
  KEPMfgModelUtilities::GetV5ObjectFromV4Parameter(activity, plain, object);
  if (!object) return std::nullopt;
  const bool found = answers<KEPIMfgCustomParameters>(object, plain, value) ||
                     answers<KEPIMfgV4ToV5Parameters>(object, plain, value);
  return found ? std::optional(value) : std::nullopt;
}

}  // namespace ppword
