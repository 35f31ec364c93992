#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "Manufacturing/KEPMfgUtilities.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "host/manufacturing/Activity.h"
#include "host/manufacturing/Program.h"
#include "host/modeler/Container.h"
#include "host/modeler/Document.h"
#include "host/system/ResourceFolders.h"

namespace {

/// The host's own program behind an interface of it; null when it is none.
const host::Program* programOf(const KEPBaseUnknown* object) {
  return object == nullptr ? nullptr : dynamic_cast<const host::Program*>(object->GetImpl());
}

KEPIDocument_var owningDocument(const KEPBaseUnknown_var& object) {
  if (const host::Program* const program = programOf(object.Get())) return program->document();
  const KEPIContainer_var container = host::containerOf(object);
  return container ? container->GetDocument() : nullptr;
}

template <class Handle>
HRESULT statusOf(const Handle& handle) {
  return handle ? S_OK : E_FAIL;
}

}  // namespace

HRESULT KEPMfgModelUtilities::GetPPWordContainer(const KEPBaseUnknown_var& object,
                                                 KEPIMfgPPWordContainer_var& container) {
  container = KEPIMfgPPWordContainer_var::Of(host::containerOf(object));
  return statusOf(container);
}

HRESULT KEPMfgModelUtilities::GetRootContainer(const KEPBaseUnknown_var& object,
                                               KEPIMfgRootContainer_var& root) {
  root = nullptr;
  const KEPIDocument_var document = owningDocument(object);
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

HRESULT KEPMfgModelUtilities::GetSetup(const KEPIMfgActivity_var& activity,
                                       KEPIMfgSetup_var& setup) {
  const host::Program* const program = programOf(activity.Get());
  setup = program == nullptr ? nullptr : program->setup();
  return statusOf(setup);
}

HRESULT KEPMfgModelUtilities::GetV5ObjectFromV4Parameter(const KEPIMfgActivity_var& activity,
                                                         std::string_view name,
                                                         KEPBaseUnknown_var& object) {
  object = nullptr;
  const auto* const own = dynamic_cast<const host::Activity*>(activity.Get());
  if (own != nullptr) object = own->ownerOf(name);
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

void KEPMfgUtilities::GetListOfMfgFilesAndDirectories(std::string_view folderName,
                                                      KEPListValKEPUnicodeString& directories,
                                                      KEPListValKEPUnicodeString& files,
                                                      int /*flag*/) {
  directories.RemoveAll();
  files.RemoveAll();
  for (const host::ResourceFolder& folder : host::resourceFolders(folderName)) {
    for (const std::string& file : folder.files) {
      directories.Append(std::string_view(folder.path));
      files.Append(std::string_view(file));
    }
  }
}
