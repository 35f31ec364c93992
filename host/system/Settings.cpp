#include <cstdlib>
#include <string>

#include "Manufacturing/KEPMfgEnvVarMgt.h"

KEPString KEPMfgEnvVarMgt::Get(std::string_view name) {
  return KEPString(std::getenv(std::string(name).c_str()));
}

bool KEPMfgEnvVarMgt::GetStatus(std::string_view name) { return !Get(name).IsEmpty(); }
