#pragma once

#include <memory>

#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "System/KEPError.h"

class KEPMfgPPWordListener;

namespace host {

/// What the application keeps beside its documents: the last error, the data of the running
/// generation and whoever listens to the module. One for each process.
struct Session {
  std::unique_ptr<KEPError> lastError;
  KEPIMfgGeneratorData_var generatorData;
  KEPMfgPPWordListener* listener = nullptr;
};

[[nodiscard]] KEP_PLATFORM Session& session();

}  // namespace host
