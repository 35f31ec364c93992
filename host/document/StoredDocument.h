#pragma once

#include <cstdint>

#include "host/document/Database.h"
#include "host/modeler/Document.h"

namespace host {

/// The stored version of a document file. Whatever is not a document that this program reads is
/// refused: another database, a newer version, a damaged file. A transaction must have begun.
[[nodiscard]] std::int64_t requireDocument(Database& database);

/// The mark of the state that a file holds which requireDocument has accepted.
[[nodiscard]] std::int64_t storedStamp(Database& database);

/// The document of a file that requireDocument has accepted, as it was stored; it needs an upgrade
/// when the version is older than the present one.
[[nodiscard]] KEPVar<Document> readDocument(Database& database, std::int64_t version);

/// Makes a document the whole content of a database; returns the mark of the state stored. A
/// transaction for writing must have begun. A DocumentError when the document goes beyond the
/// limits of the format.
[[nodiscard]] std::int64_t writeDocument(const Document& document, Database& database);

}  // namespace host
