#include "host/document/DocumentError.h"

namespace host {

DocumentError::DocumentError(Kind kind, std::string_view file, std::string_view reason)
    : std::runtime_error(std::string(file) + ": error: " + std::string(reason)),
      kind_(kind),
      file_(file),
      reason_(reason) {}

DocumentError::~DocumentError() = default;

}  // namespace host
