#include "host/system/Session.h"

namespace host {

Session& session() {
  static Session instance;
  return instance;
}

}  // namespace host

KEPMfgPPWordListener::~KEPMfgPPWordListener() = default;

KEPMfgPPWordListener* KEPMfgPPWordListener::Current() noexcept { return host::session().listener; }

KEPIMfgGeneratorData_var KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData() {
  return host::session().generatorData;
}
