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
  const KEPIDocument_var document = container->GetDocument();
  const auto* const own = dynamic_cast<const host::Document*>(document.Get());
  if (own != nullptr) root = own->rootContainer();
  return statusOf(root);
}

HRESULT KEPMfgModelUtilities::GetCurrentActivity(const KEPIMfgPPWordContainer_var& container,
                                                 KEPIMfgActivity_var& activity) {
  KEPBaseUnknown_var first;
  if (container) container->GetFirstObject(first);
  activity = first;
  return statusOf(activity);
}

HRESULT KEPMfgModelUtilities::GetV5ObjectFromV4Parameter(const KEPIMfgActivity_var& activity,
                                                         std::string_view name,
                                                         KEPBaseUnknown_var& object) {
  object = nullptr;
  const auto* const own = dynamic_cast<const host::Activity*>(activity.Get());
  if (own != nullptr && own->knows(name)) object = activity;
  return statusOf(object);
}

bool KEPMfgUtilities::IsUpgradeNecessary(const KEPIDocument_var& document) {
  return document->NeedsUpgrade();
}

HRESULT KEPMfgUtilities::UpgradeComponentAttributes(const KEPISpecAttrAccess_var& component,
                                                    KEPListVal<KEPBaseUnknown_var>* objects,
                                                    int publish, int /*recursive*/) {
  const KEPISpecObject_var feature = component;
  auto* const own = dynamic_cast<host::Feature*>(feature.Get());
  if (own == nullptr) return E_FAIL;
  if (publish == 1) own->publish();
  if (objects != nullptr) objects->Append(feature);
  return S_OK;
}
