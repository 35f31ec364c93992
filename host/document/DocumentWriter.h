#pragma once

#include <cstdint>

#include "host/document/Database.h"
#include "host/modeler/Document.h"

namespace host {

/// Makes a document the whole content of a database and gives the mark of the state stored. A
/// transaction for writing must have begun. A DocumentError when the document goes beyond the
/// limits of the format.
[[nodiscard]] std::int64_t writeDocument(const Document& document, Database& database);

}  // namespace host
