#pragma once

#include <memory>
#include <string>

#include "System/KEPPlatform.h"
#include "host/document/DocumentError.h"
#include "host/modeler/Document.h"

namespace host {

class Database;

/// The document that a file holds. It lives in memory from then on and does not hold the file. It
/// needs an upgrade when the file is of an older version. A DocumentError for a file that is not
/// a document, is damaged or of a newer version; a change that a killed process left unfinished is
/// undone first.
[[nodiscard]] KEP_PLATFORM KEPVar<Document> openDocument(const std::string& path);

/// Saves a document in one transaction. A file that is not there appears whole or not at all. One
/// that is there must hold the state that the document was opened from or saved as: neither another
/// document nor the change of another process is ever replaced. After a DocumentError the file is
/// as it was, unless its kind is NotCertain: then the document is saved.
KEP_PLATFORM void saveDocument(Document& document, const std::string& path);

/// Brings a document that needs it to the present version: initialises its PP word container, which
/// publishes all attributes and makes what the default catalogue has new. The module must be
/// loaded; otherwise the null-handle error is raised. Saving it afterwards upgrades its file.
KEP_PLATFORM void upgradeDocument(Document& document);

/// One change of a document file, from its opening to its saving: meanwhile other processes can
/// read the file, and none can change it. Errors are those of openDocument and saveDocument.
class KEP_PLATFORM DocumentChange {
 public:
  explicit DocumentChange(const std::string& path);
  DocumentChange(const DocumentChange&) = delete;
  DocumentChange& operator=(const DocumentChange&) = delete;
  /// Leaves the file as it was unless the change was saved.
  ~DocumentChange();

  [[nodiscard]] const KEPVar<Document>& document() const noexcept { return document_; }
  /// Saves the document and ends the change.
  void save();

 private:
  std::unique_ptr<Database> database_;
  KEPVar<Document> document_;
};

}  // namespace host
