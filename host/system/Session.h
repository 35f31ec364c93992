#pragma once

#include <memory>

#include "System/KEPError.h"

namespace host {

/// What the application keeps beside its documents: the last error. One for each process.
struct Session {
  std::unique_ptr<KEPError> lastError;
};

[[nodiscard]] Session& session();

}  // namespace host
