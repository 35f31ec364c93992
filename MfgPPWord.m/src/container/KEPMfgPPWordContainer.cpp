#include "src/container/KEPMfgPPWordContainer.h"

#include <memory>

#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "System/KEPError.h"
#include "src/container/DefaultCatalogue.h"
#include "src/container/Initialisation.h"
#include "src/container/SyntaxLookup.h"
#include "src/container/TableLoad.h"
#include "src/container/TypeTree.h"

namespace {

constexpr std::string_view kUserInstruction = "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX";

}  // namespace

KEPISpecObject* KEPMfgPPWordContainer::FindPPWord(const KEPString& name) {
  return container()->FindStartUp(name);
}

void KEPMfgPPWordContainer::GetPPWord(KEPISpecObject_var& word, const KEPString& name) {
  word = ppword::findType(container(), name);
}

HRESULT KEPMfgPPWordContainer::Refresh() { return S_OK; }

HRESULT KEPMfgPPWordContainer::Initialize(bool skipAttributeUpgrade) {
  try {
    return ppword::initialise(container(), skipAttributeUpgrade);
  } catch (const KEPError& error) {
    return KEPError::GetReturn(error.Clone());
  }
}

bool KEPMfgPPWordContainer::SetObjects(const KEPBaseUnknown_var& object) {
  firstObject_ = object;
  secondObject_ = object;
  return true;
}

bool KEPMfgPPWordContainer::GetFirstObject(KEPBaseUnknown_var& object) {
  object = firstObject_;
  return true;
}

void KEPMfgPPWordContainer::GetPPCommand(KEPIMfgPPCommand_var& command,
                                         const KEPUnicodeString& name) {
  command = ppword::findType(container(), name);
}

void KEPMfgPPWordContainer::GetSyntaxEvaluation(KEPIMfgSyntaxEvaluation_var& evaluation,
                                                const KEPUnicodeString& name) {
  evaluation = ppword::findSyntaxEvaluation(container(), name);
}

HRESULT KEPMfgPPWordContainer::LoadPPWordTable(const KEPUnicodeString& path) {
  return ppword::loadTable(container(), path);
}

HRESULT KEPMfgPPWordContainer::SetUserSyntax(const KEPUnicodeString& line) {
  const KEPIContainer_var features = container();
  KEPISpecObject_var type = ppword::findType(features, kUserInstruction);
  if (type) {
    KEPMfgAttributeUtilities::RemoveAll(type, ppword::kSyntaxe);
  } else {
    type = ppword::makeType(features, kUserInstruction, ppword::syntaxRoot(features),
                            ppword::kSyntaxe, KEPISpecAttribute::Kind::StringList);
  }
  KEPMfgAttributeUtilities::SetString(type, ppword::kSyntaxe, line);
  return S_OK;
}

HRESULT KEPMfgPPWordContainer::SetSecondObject(const KEPBaseUnknown_var& object) {
  secondObject_ = object;
  return S_OK;
}

HRESULT KEPMfgPPWordContainer::GetSecondObject(KEPBaseUnknown_var& object) {
  object = secondObject_;
  return S_OK;
}

HRESULT KEPMfgPPWordContainer::ResetToDefault() {
  const KEPIContainer_var features = container();
  auto members = features->ListMembersHere(KEPInterfaceId<KEPIMfgSyntaxEvaluation>());
  for (auto member = members.rbegin(); member != members.rend(); ++member) {
    const bool isCommand = static_cast<bool>(KEPIMfgPPCommand_var(*member));
    if (!isCommand) KEPILifeCycleObject_var(*member)->remove();
    *member = nullptr;
  }
  ppword::createDefaultCatalogue(features);
  return S_OK;
}

KEPIContainer_var KEPMfgPPWordContainer::container() const {
  return KEPIContainer_var::Of(GetImpl());
}
