#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "Manufacturing/KEPMfgUtilities.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "host/manufacturing/Activity.h"
#include "host/modeler/Document.h"

namespace {

/// The container that holds a feature, or the container itself.
KEPIContainer_var containerOf(const KEPBaseUnknown_var& object) {
  if (const KEPISpecObject_var feature = object) return feature->GetContainer();
  return KEPIContainer_var(object);
}

template <class Handle>
HRESULT statusOf(const Handle& handle) {
  return handle ? S_OK : E_FAIL;
}

}  // namespace

HRESULT KEPMfgModelUtilities::GetPPWordContainer(const KEPBaseUnknown_var& object,
                                                 KEPIMfgPPWordContainer_var& container) {
  container = containerOf(object);
  return statusOf(container);
}

HRESULT KEPMfgModelUtilities::GetRootContainer(const KEPBaseUnknown_var& object,
                                               KEPIMfgRootContainer_var& root) {
  root = nullptr;
  const KEPIContainer_var container = containerOf(object);
  if (!container) return E_FAIL;
  const KEPVar<host::Document> document = container->GetDocument();
  if (document) root = document->rootContainer();
  return statusOf(root);
}

HRESULT KEPMfgModelUtilities::GetCurrentActivity(const KEPIMfgPPWordContainer_var& container,
                                                 KEPIMfgActivity_var& activity) {
  KEPBaseUnknown_var first;
  container->GetFirstObject(first);
  activity = first;
  return statusOf(activity);
}

HRESULT KEPMfgModelUtilities::GetV5ObjectFromV4Parameter(const KEPIMfgActivity_var& activity,
                                                         std::string_view name,
                                                         KEPBaseUnknown_var& object) {
  object = nullptr;
  const KEPVar<host::Activity> known = activity;
  if (known && known->knows(name)) object = known;
  return statusOf(object);
}

bool KEPMfgUtilities::IsUpgradeNecessary(const KEPIDocument_var& document) {
  return document->NeedsUpgrade();
}

HRESULT KEPMfgUtilities::UpgradeComponentAttributes(const KEPISpecAttrAccess_var& component,
                                                    KEPListVal<KEPBaseUnknown_var>* objects,
                                                    int publish, int /*recursive*/) {
  const KEPVar<host::Feature> feature = KEPISpecObject_var(component);
  if (publish == 1) feature->publish();
  if (objects != nullptr) objects->Append(feature);
  return S_OK;
}
