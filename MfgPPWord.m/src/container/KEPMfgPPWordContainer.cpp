#include "src/container/KEPMfgPPWordContainer.h"

#include <memory>
#include <utility>

#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "Manufacturing/KEPMfgEnvVarMgt.h"
#include "Manufacturing/KEPMfgUtilities.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPError.h"
#include "language/number/IntegerPrefix.h"
#include "src/container/DefaultCatalogue.h"
#include "src/container/TableLoad.h"
#include "src/container/TypeTree.h"

namespace {

constexpr std::string_view kUserInstruction = "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX";

constexpr std::string_view kMotionMarker = "#SEQMOTION#";
constexpr int kNoMotion = -1;

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

/// Publishes the attributes of the members where that is due, then creates the default catalogue.
HRESULT initialise(const KEPIContainer_var& container, bool skipAttributeUpgrade) {
  const bool isDue =
      KEPMfgUtilities::IsUpgradeNecessary(container->GetDocument()) || publishingIsForced();
  const HRESULT status = isDue ? publish(container, skipAttributeUpgrade) : S_OK;
  ppword::createDefaultCatalogue(container);
  return status;
}

/// The syntax evaluation of an NC instruction, with the number of the sequential motion that a
/// marker in the name has (-1 without one).
KEPIMfgSyntaxEvaluation_var findSyntaxEvaluation(const KEPIContainer_var& container,
                                                 std::string_view name) {
  int motion = kNoMotion;
  KEPISpecObject_var type = ppword::findType(container, name);
  if (!type) {
    const std::size_t marker = name.find(kMotionMarker);
    // deliberate: a marker at the very start is not a marker, and hides those after it
    if (marker == 0 || marker == std::string_view::npos) return nullptr;
    motion = ppword::integerPrefix(name.substr(marker + kMotionMarker.size())).value_or(kNoMotion);
    type = ppword::findType(container, name.substr(0, marker));
  }
  KEPIMfgSyntaxEvaluation_var evaluation = type;
  if (!evaluation && motion < 1) return nullptr;
  // deliberate: for a motion of an unknown instruction this raises the null-handle error
  evaluation->SetSeqMotionNumber(motion);
  return evaluation;
}

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
    return initialise(container(), skipAttributeUpgrade);
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
  if (last_.mark.isCurrent() && last_.name == name.View()) {
    // Held meanwhile: its number may be set by somebody else's code.
    KEPIMfgSyntaxEvaluation_var known(last_.evaluation);
    known->SetSeqMotionNumber(kNoMotion);
    evaluation = std::move(known);
    return;
  }
  const KEPIContainer_var features = container();
  ppword::RevisionMark mark;
  mark.set(features.Get());
  evaluation = findSyntaxEvaluation(features, name);
  // A name with the number of a motion is read each time.
  const bool isPlain = name.View().find(kMotionMarker) == std::string_view::npos;
  if (evaluation && isPlain) last_ = {mark, std::string(name.View()), evaluation.Get()};
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
    type = ppword::createType(features, kUserInstruction, ppword::syntaxRoot(features),
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
