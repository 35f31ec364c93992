#pragma once

#include <filesystem>
#include <stdexcept>

#include "System/KEPPlatform.h"

namespace host {

/// Raised when the module cannot be loaded; what() says which file and why.
class ModuleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Where the module is looked for: beside the host's own library.
[[nodiscard]] KEP_PLATFORM std::filesystem::path defaultModulePath();

/// Loads the module into the process; its classes register themselves. A module that is loaded
/// already, or linked, is not loaded again. It stays loaded until the process ends. The host may be
/// part of a plug-in whose names are its own (RTLD_LOCAL): its names become global.
KEP_PLATFORM void loadModule(const std::filesystem::path& path = defaultModulePath());

}  // namespace host
