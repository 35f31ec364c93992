#include "host/document/DocumentFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "host/document/Database.h"
#include "host/document/StoredDocument.h"
#include "host/system/FilePlace.h"

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

/// Gives a file another name that nothing has yet.
bool moveToNewName(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  // Some file systems lack the one way, some the other.
  return errno == EINVAL && ::link(from.c_str(), to.c_str()) == 0;
}

/// A file that is not in its place yet; it goes with the object unless it was put there.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& target) : target_(target) {
    FileBeside file = createBeside(target);
    if (file.descriptor < 0) refuseWriting(target, systemReason(errno));
    ::close(file.descriptor);
    path_ = std::move(file.path);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    ::unlink(path_.c_str());
    ::unlink((path_ + "-journal").c_str());
  }

  [[nodiscard]] const std::string& path() const noexcept { return path_; }

  /// Puts the file in its place unless something stands there.
  void place() {
    if (!moveToNewName(path_, target_)) refuseWriting(target_, systemReason(errno));
    if (!synchroniseFolderOf(target_)) refuseWriting(target_, systemReason(errno));
  }

 private:
  const std::string& target_;
  std::string path_;
};

void saveNew(Document& document, const std::string& path) {
  // It would be taken for an unfinished change of the new file.
  if (isThere(path + "-journal")) {
    refuseWriting(path, "the journal of a lost document, " + path + "-journal, lies there");
  }
  TemporaryFile file(path);
  std::int64_t stamp = 0;
  {
    Database database(file.path(), path);
    database.beginWriting();
    stamp = writeDocument(document, database);
    database.commit();
  }
  file.place();
  document.setStoredStamp(stamp);
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
  Database database(path, path);
  database.beginWriting();
  static_cast<void>(requireDocument(database));
  if (storedStamp(database) != document.storedStamp()) {
    refuseWriting(path, "it holds another document, or was changed since this one was opened");
  }
  const std::int64_t stamp = writeDocument(document, database);
  database.commit();
  document.setStoredStamp(stamp);
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
  const std::int64_t stamp = writeDocument(*document_, *database_);
  database_->commit();
  document_->setStoredStamp(stamp);
  database_.reset();
}

}  // namespace host
