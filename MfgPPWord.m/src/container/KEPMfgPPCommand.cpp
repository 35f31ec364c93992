#include "src/container/KEPMfgPPCommand.h"

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "Manufacturing/KEPMfgModelUtilities.h"

namespace {

constexpr std::string_view kCommandName = "CommandName";
constexpr std::string_view kSequenceNumber = "SequenceNumber";

}  // namespace

bool KEPMfgPPCommand::SetCommandName(const KEPUnicodeString& name) {
  KEPMfgAttributeUtilities::SetString(feature(), kCommandName, name);
  return true;
}

bool KEPMfgPPCommand::GetCommandName(KEPUnicodeString& name) const {
  bool found = false;
  const HRESULT status = KEPMfgAttributeUtilities::GetString(feature(), kCommandName, found, name);
  if (KEPSucceeded(status) && found) return true;
  name = KEPUnicodeString(" ");
  return false;
}

bool KEPMfgPPCommand::GetObjects(void*& first, void*& second) const {
  first = nullptr;
  second = nullptr;
  return true;
}

bool KEPMfgPPCommand::Evaluate(KEPListValKEPUnicodeString& lines) {
  KEPIMfgPPWordContainer_var container;
  KEPMfgModelUtilities::GetPPWordContainer(feature(), container);
  KEPUnicodeString name;
  if (!container || !GetCommandName(name)) return false;

  int number = 0;
  static_cast<void>(GetSequenceNumber(number));
  const auto type = KEPISpecObject_var::Adopt(container->FindPPWord(KEPString(name.View())));
  const KEPIMfgSyntaxEvaluation_var evaluation = type;
  return evaluation && evaluation->InstantiateSyntax(lines, number);
}

bool KEPMfgPPCommand::SetSequenceNumber(const int& number) {
  KEPMfgAttributeUtilities::SetInteger(feature(), kSequenceNumber, number);
  return true;
}

bool KEPMfgPPCommand::GetSequenceNumber(int& number) const {
  bool found = false;
  const HRESULT status =
      KEPMfgAttributeUtilities::GetInteger(feature(), kSequenceNumber, found, number);
  if (KEPSucceeded(status) && found) return true;
  number = 0;
  return false;
}

KEPISpecObject_var KEPMfgPPCommand::feature() const { return KEPISpecObject_var::Of(GetImpl()); }
