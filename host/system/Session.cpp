#include "host/system/Session.h"

#include <cstdlib>
#include <string>

#include "Manufacturing/KEPMfgEnvVarMgt.h"
#include "Manufacturing/KEPMfgPPWordListener.h"

namespace host {

Session& session() {
  // Lives as long as the process, as the dictionary does.
  static auto& instance = *new Session;
  return instance;
}

}  // namespace host

KEPMfgPPWordListener::~KEPMfgPPWordListener() = default;

KEPMfgPPWordListener* KEPMfgPPWordListener::Current() noexcept { return host::session().listener; }

KEPIMfgGeneratorData_var KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData() {
  return host::session().generatorData;
}

KEPString KEPMfgEnvVarMgt::Get(std::string_view name) {
  return KEPString(std::getenv(std::string(name).c_str()));
}

bool KEPMfgEnvVarMgt::GetStatus(std::string_view name) { return !Get(name).IsEmpty(); }
