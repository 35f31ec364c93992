#include "src/container/KEPMfgPPWordFactory.h"

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "src/container/TypeTree.h"

namespace {

constexpr std::string_view kCommandType = "MfgPPCommand";

}  // namespace

void KEPMfgPPWordFactory::CreatePPCommand(KEPIMfgPPCommand_var& command,
                                          const KEPUnicodeString& name, const int& number) {
  const KEPIContainer_var container = KEPIContainer_var::Of(GetImpl());
  const KEPISpecObject_var type = ppword::findType(container, kCommandType);
  const auto instance = KEPISpecObject_var::Adopt(container->CreateInstance(type, ""));
  const KEPIMfgPPCommand_var made = instance;
  if (!made) {
    KEPILifeCycleObject_var(instance)->remove();
    KEPRaiseNullHandle();
  }
  made->SetCommandName(name);
  made->SetSequenceNumber(number);
  command = made;
}
