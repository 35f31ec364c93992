#include "host/manufacturing/Program.h"

namespace host {

KEPVar<Setup> Setup::create(KEPIMfgResource_var resource) {
  return KEPVar<Setup>::Adopt(new Setup(std::move(resource)));
}

KEPBaseUnknown* Setup::Answer(const KEPMetaClass* interfaceClass) {
  return interfaceClass == KEPInterfaceId<KEPIMfgSetup>() ? this : nullptr;
}

KEPVar<Program> Program::create(std::string_view name, KEPVar<Document> document,
                                KEPIMfgSetup_var setup) {
  return KEPVar<Program>::Adopt(new Program(name, std::move(document), std::move(setup)));
}

HRESULT Program::AsActivity::GetToolAndAssembly(KEPBaseUnknown_var& tool,
                                                KEPBaseUnknown_var& assembly) const {
  tool = nullptr;
  assembly = nullptr;
  return E_FAIL;
}

KEPBaseUnknown* Program::Answer(const KEPMetaClass* interfaceClass) {
  if (interfaceClass == KEPInterfaceId<KEPIMfgProgram>()) return this;
  if (interfaceClass == KEPInterfaceId<KEPIMfgActivity>()) return &activity_;
  return nullptr;
}

}  // namespace host
