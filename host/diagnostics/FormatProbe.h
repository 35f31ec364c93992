#pragma once

#include <string_view>

#include "System/KEPPlatform.h"
#include "host/modeler/Document.h"

namespace host {

/// Tells whether the module can print a number with a format, by asking it: a document of its own
/// evaluates a point with that format. The module must be loaded.
class KEP_PLATFORM FormatProbe {
 public:
  FormatProbe();

  [[nodiscard]] bool canPrint(std::string_view format) const;

 private:
  KEPVar<Document> document_;
};

}  // namespace host
