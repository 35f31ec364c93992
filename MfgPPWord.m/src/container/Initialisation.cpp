#include "src/container/Initialisation.h"

#include "Manufacturing/KEPMfgEnvVarMgt.h"
#include "Manufacturing/KEPMfgUtilities.h"
#include "ObjectSpecsModeler/KEPISpecAttrAccess.h"
#include "src/container/DefaultCatalogue.h"

namespace ppword {
namespace {

bool publishingIsForced() {
  static const bool isSet = KEPMfgEnvVarMgt::GetStatus("MfgForcePublish");
  return isSet;
}

bool publishingIsOff() {
  static const bool isSet = KEPMfgEnvVarMgt::GetStatus("MfgNoPublish");
  return isSet;
}

void publishMembers(const KEPIContainer_var& container) {
  constexpr int kPublish = 1;
  constexpr int kNotRecursive = 0;
  auto members = container->ListMembersHere(KEPInterfaceId<KEPISpecObject>());
  for (auto member = members.rbegin(); member != members.rend(); ++member) {
    const KEPISpecAttrAccess_var attributes = *member;
    if (attributes) {
      KEPMfgUtilities::UpgradeComponentAttributes(attributes, nullptr, kPublish, kNotRecursive);
    }
    *member = nullptr;
  }
}

HRESULT publish(const KEPIContainer_var& container, bool skipAttributeUpgrade) {
  if (publishingIsOff()) return S_OK;
  // deliberate: callers see the unexpected-failure code although nothing failed
  if (skipAttributeUpgrade) return E_UNEXPECTED;
  publishMembers(container);
  return S_OK;
}

}  // namespace

HRESULT initialise(const KEPIContainer_var& container, bool skipAttributeUpgrade) {
  const bool isDue =
      KEPMfgUtilities::IsUpgradeNecessary(container->GetDocument()) || publishingIsForced();
  const HRESULT status = isDue ? publish(container, skipAttributeUpgrade) : S_OK;
  createDefaultCatalogue(container);
  return status;
}

}  // namespace ppword
