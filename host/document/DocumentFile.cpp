#include "host/document/DocumentFile.h"

#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "host/document/Database.h"
#include "host/document/StoredDocument.h"
#include "host/system/FileBeside.h"
#include "host/system/SystemReason.h"

namespace host {
namespace {

using Kind = DocumentError::Kind;

bool isThere(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

[[noreturn]] void refuseWriting(const std::string& path, std::string_view reason) {
  throw DocumentError(Kind::NotWritten, path, "cannot be written: " + std::string(reason));
}

void requireUpgraded(const Document& document, const std::string& path) {
  if (!document.NeedsUpgrade()) return;
  throw DocumentError(Kind::Refused, path, "the document is of an older version; upgrade it first");
}

/// True when the file holds the state with this stamp.
bool holds(const std::string& path, std::int64_t stamp) {
  try {
    Database database(path, path);
    database.beginReading();
    static_cast<void>(requireDocument(database));
    return storedStamp(database) == stamp;
  } catch (const DocumentError&) {
    return false;
  }
}

/// Writes the document into the file at `path` and ends the transaction and the connection. Returns
/// why the system failed although the file holds the document; empty when it did not.
std::string store(const Document& document, std::unique_ptr<Database> database,
                  const std::string& path, std::int64_t& stamp) {
  stamp = writeDocument(document, *database);
  const std::string name = database->name();
  std::string failure = database->commit();
  database.reset();
  // What comes after the change, such as synchronising the folder, can fail too.
  if (!failure.empty() && !holds(path, stamp)) refuseWriting(name, failure);
  return failure;
}

void saveNew(Document& document, const std::string& path) {
  // It would be taken for an unfinished change of the new file.
  if (isThere(path + "-journal")) {
    refuseWriting(path, "the journal of a lost document, " + path + "-journal, lies there");
  }
  FileBeside file;
  if (!file.create(path)) refuseWriting(path, systemReason(errno));
  auto database = std::make_unique<Database>(file.path(), path);
  database->beginWriting();
  std::int64_t stamp = 0;
  store(document, std::move(database), file.path(), stamp);
  const auto outcome = file.place(FileBeside::Existing::Kept);
  const std::string reason = systemReason(errno);
  if (outcome == FileBeside::Outcome::Failed) refuseWriting(path, reason);
  document.setStoredStamp(stamp);
  if (outcome == FileBeside::Outcome::NotCertain) {
    throw DocumentError(Kind::NotCertain, path, doubtText(reason));
  }
}

/// Changes a file that exists, in the transaction that has begun.
void saveChange(Document& document, std::unique_ptr<Database> database) {
  const std::string path = database->name();
  std::int64_t stamp = 0;
  const std::string failure = store(document, std::move(database), path, stamp);
  document.setStoredStamp(stamp);
  if (!failure.empty()) throw DocumentError(Kind::NotCertain, path, doubtText(failure));
}

}  // namespace

KEPVar<Document> openDocument(const std::string& path) {
  Database database(path, path);
  database.beginReading();
  return readDocument(database, requireDocument(database));
}

void saveDocument(Document& document, const std::string& path) {
  requireUpgraded(document, path);
  if (!isThere(path)) return saveNew(document, path);
  if (document.storedStamp() == 0) refuseWriting(path, systemReason(EEXIST));
  auto database = std::make_unique<Database>(path, path);
  database->beginWriting();
  static_cast<void>(requireDocument(*database));
  if (storedStamp(*database) != document.storedStamp()) {
    refuseWriting(path, "it holds another document, or was changed since this one was opened");
  }
  saveChange(document, std::move(database));
}

void upgradeDocument(Document& document) {
  if (!document.NeedsUpgrade()) return;
  document.ppWordContainer()->Initialize(/*skipAttributeUpgrade=*/false);
  document.setNeedsUpgrade(false);
}

DocumentChange::DocumentChange(const std::string& path)
    : database_(std::make_unique<Database>(path, path)) {
  database_->beginWriting();
  document_ = readDocument(*database_, requireDocument(*database_));
}

DocumentChange::~DocumentChange() = default;

void DocumentChange::save() {
  requireUpgraded(*document_, database_->name());
  saveChange(*document_, std::move(database_));
}

}  // namespace host
