#include "host/system/Session.h"

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
