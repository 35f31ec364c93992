#include "src/container/KEPMfgPPWordTable.h"

#include <vector>

#include "KEPIMfgSyntaxEvaluation.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "src/syntax/SyntaxAttribute.h"

namespace {

/// The NC instructions of the container that a table object extends; none when it extends no
/// container.
std::vector<KEPBaseUnknown_var> membersOf(const KEPIContainer_var& container) {
  if (!container) return {};
  return container->ListMembersHere(KEPInterfaceId<KEPIMfgSyntaxEvaluation>());
}

/// The feature of the member at an index; null outside.
KEPISpecObject_var featureAt(const KEPBaseUnknown* table, int index) {
  const auto members = membersOf(KEPIContainer_var::Of(table));
  if (index < 0 || static_cast<std::size_t>(index) >= members.size()) return nullptr;
  return members[static_cast<std::size_t>(index)];
}

}  // namespace

bool KEPMfgPPWordTable::GetNumberOfNCInstruction(int& count) {
  const KEPIContainer_var container = KEPIContainer_var::Of(GetImpl());
  // deliberate: the first member is not counted; a container without members has minus one
  count = container ? static_cast<int>(membersOf(container).size()) - 1 : 0;
  return static_cast<bool>(container);
}

bool KEPMfgPPWordTable::GetNameOfNCInstruction(int index, KEPString& name) {
  const KEPISpecObject_var feature = featureAt(GetImpl(), index);
  if (!feature) return false;
  name = KEPString(feature->GetLateType());
  return true;
}

bool KEPMfgPPWordTable::GetNumberOfSequenceForNCInstruction(int index, int& count) {
  const KEPISpecObject_var feature = featureAt(GetImpl(), index);
  if (!feature) return false;
  count = ppword::syntaxAttributeCount(feature);
  return true;
}

bool KEPMfgPPWordTable::GetSyntaxOfSequenceForNCInstruction(int index, int sequence,
                                                            KEPListValKEPString& lines) {
  const KEPISpecObject_var feature = featureAt(GetImpl(), index);
  if (!feature) return false;
  const auto attribute = ppword::syntaxAttribute(feature, sequence);
  if (!attribute || !attribute->IsAList()) return false;
  for (const KEPUnicodeString& line : attribute->GetTexts()) lines.Append(KEPString(line.View()));
  return true;
}

bool KEPMfgPPWordTable::GetIndexOfNCInstruction(const KEPString& name, int& index) {
  const auto members = membersOf(KEPIContainer_var::Of(GetImpl()));
  index = 0;
  // deliberate: the first member is never found
  for (std::size_t position = 1; position < members.size(); ++position) {
    if (KEPISpecObject_var(members[position])->GetLateType() != name.View()) continue;
    index = static_cast<int>(position);
    return true;
  }
  return false;
}
