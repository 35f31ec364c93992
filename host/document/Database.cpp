#include "host/document/Database.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <new>
#include <utility>

#include "host/document/DocumentError.h"
#include "host/document/DocumentFormat.h"
#include "host/document/Sqlite.h"
#include "host/system/SystemReason.h"

namespace host {
namespace {

using Kind = DocumentError::Kind;

/// How long another process may keep its lock before that is an error.
constexpr int kPatienceInMilliseconds = 2000;

/// The path in a form that no setting of SQLite takes for a URI or for a database in memory.
std::string plainPath(const std::string& path) {
  return path.starts_with('/') ? path : "./" + path;
}

/// Raises the error of a path that leads to no file that can be a document.
void requireFile(const std::string& path, std::string_view name) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    throw DocumentError(Kind::Refused, name, "cannot be opened: " + systemReason(errno));
  }
  if (!S_ISREG(status.st_mode)) {
    throw DocumentError(Kind::Refused, name, "not a regular file, so not a document");
  }
  if (status.st_size > format::kMostBytes) {
    throw DocumentError(Kind::Refused, name, "is larger than 256 MiB, so no document");
  }
}

/// The operating system's error behind a failure of reading or writing; 0 when nobody knows it.
int systemError(sqlite3* connection) {
  int error = 0;
  // What the file remembers: undoing a change may have met other errors since.
  sqlite::file_control(connection, "main", SQLITE_FCNTL_LAST_ERRNO, &error);
  return error != 0 ? error : sqlite::system_errno(connection);
}

std::string reasonOf(int code, sqlite3* connection) {
  const int kind = code & 0xFF;
  const bool isSystemError = kind == SQLITE_IOERR || kind == SQLITE_CANTOPEN;
  const int error = isSystemError ? systemError(connection) : 0;
  if (kind == SQLITE_BUSY || kind == SQLITE_LOCKED) {
    return "another process holds it; try again later";
  }
  if (kind == SQLITE_FULL) return systemReason(ENOSPC);
  if (kind == SQLITE_TOOBIG) return "a text in it is longer than 16 MiB";
  if (code == SQLITE_READONLY_DBMOVED) return "it was moved or removed meanwhile";
  if (code == SQLITE_READONLY_ROLLBACK) return "an unfinished change cannot be undone here";
  if (kind == SQLITE_READONLY) return "it is write-protected";
  return error != 0 ? systemReason(error) : sqlite::errstr(code);
}

}  // namespace

void Database::Close::operator()(sqlite3* connection) const noexcept { sqlite::close(connection); }

Database::Database(const std::string& path, std::string_view name) : name_(name) {
  requireFile(path, name);
  sqlite3* connection = nullptr;
  const int code =
      sqlite::open_v2(plainPath(path).c_str(), &connection, SQLITE_OPEN_READWRITE, nullptr);
  connection_.reset(connection);
  if (connection == nullptr) throw std::bad_alloc();
  if (code != SQLITE_OK) fail(code);
  // Before anything reads the content, which SQLite brings up to date from what lies beside it.
  requireRollbackJournal();
  requireOwnJournal();
  harden();
}

void Database::harden() {
  sqlite3* const connection = connection_.get();
  sqlite::extended_result_codes(connection, 1);
  sqlite::busy_timeout(connection, kPatienceInMilliseconds);
  constexpr std::array<std::pair<int, int>, 7> kSwitches{{
      {SQLITE_DBCONFIG_DEFENSIVE, 1},
      {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
      {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
      {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
      {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
      {SQLITE_DBCONFIG_DQS_DDL, 0},
      {SQLITE_DBCONFIG_DQS_DML, 0},
  }};
  for (const auto& [what, on] : kSwitches) {
    const int code = sqlite::db_config(connection, what, on, nullptr);
    if (code != SQLITE_OK) fail(code);
  }
  constexpr std::array<std::pair<int, int>, 9> kLimits{{
      {SQLITE_LIMIT_LENGTH, format::kMostTextBytes},
      {SQLITE_LIMIT_SQL_LENGTH, 10'000},
      {SQLITE_LIMIT_COLUMN, 32},
      {SQLITE_LIMIT_EXPR_DEPTH, 10},
      {SQLITE_LIMIT_COMPOUND_SELECT, 2},
      {SQLITE_LIMIT_FUNCTION_ARG, 8},
      {SQLITE_LIMIT_ATTACHED, 0},
      {SQLITE_LIMIT_VARIABLE_NUMBER, 16},
      {SQLITE_LIMIT_TRIGGER_DEPTH, 1},
  }};
  for (const auto& [what, most] : kLimits) sqlite::limit(connection, what, most);
  // EXTRA is FULL, and the folder is synchronised when the journal goes. Without spilling nothing
  // reaches the file before the commit.
  run("PRAGMA cell_size_check=ON;PRAGMA mmap_size=0;PRAGMA temp_store=MEMORY;"
      "PRAGMA cache_spill=OFF;PRAGMA synchronous=EXTRA");
}

/// A write-ahead log would be made beside the file of a stranger by looking at it.
void Database::requireRollbackJournal() {
  constexpr int kHeaderSize = 20;
  constexpr std::size_t kWriteVersion = 18;
  constexpr std::size_t kReadVersion = 19;
  sqlite3_file* file = nullptr;
  sqlite::file_control(connection_.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
  std::array<char, kHeaderSize> header{};
  if (file == nullptr || file->pMethods == nullptr) refuse("this file is not a document");
  const int code = file->pMethods->xRead(file, header.data(), kHeaderSize, 0);
  if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ) fail(code);
  const bool isLogged = header[kWriteVersion] == 2 || header[kReadVersion] == 2;
  if (isLogged) refuse("this file is not a document: it is a database with a write-ahead log");
}

/// A journal with this end names a further file, which SQLite deletes when the change is undone.
/// No change of a document makes such a journal.
void Database::requireOwnJournal() {
  constexpr std::string_view kEnd = "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7";
  constexpr auto kSize = static_cast<off_t>(kEnd.size());
  const char* const file = sqlite::db_filename(connection_.get(), "main");
  const int journal = ::open(sqlite::filename_journal(file), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (journal < 0) return;
  std::array<char, kEnd.size()> end{};
  const bool isRead =
      ::lseek(journal, -kSize, SEEK_END) >= 0 && ::read(journal, end.data(), end.size()) == kSize;
  ::close(journal);
  if (!isRead || std::string_view(end.data(), end.size()) != kEnd) return;
  refuse("the journal beside it, " + name_ + "-journal, is not that of a document; remove it");
}

void Database::run(const std::string& statements) {
  const int code = sqlite::exec(connection_.get(), statements.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) fail(code);
}

std::int64_t Database::queryNumber(std::string_view statement) {
  Statement query(*this, statement);
  return query.step() && query.isInteger(0) ? query.integer(0) : 0;
}

void Database::beginReading() { run("BEGIN"); }

void Database::beginWriting() {
  writing_ = true;
  run("BEGIN IMMEDIATE");
}

std::string Database::commit() {
  const int code = sqlite::exec(connection_.get(), "COMMIT", nullptr, nullptr, nullptr);
  if ((code & 0xFF) == SQLITE_NOMEM) throw std::bad_alloc();
  return code == SQLITE_OK ? "" : reasonOf(code, connection_.get());
}

void Database::refuse(std::string_view reason) const {
  throw DocumentError(Kind::Refused, name_, reason);
}

void Database::fail(int code) const {
  switch (code & 0xFF) {
    case SQLITE_NOMEM:
      throw std::bad_alloc();
    case SQLITE_NOTADB:
      refuse("this file is not a document");
    case SQLITE_ERROR:
    case SQLITE_CORRUPT:
      refuse("the document is damaged");
    default:
      break;
  }
  const std::string reason = reasonOf(code, connection_.get());
  if (!writing_) refuse("cannot be read: " + reason);
  throw DocumentError(Kind::NotWritten, name_, "cannot be written: " + reason);
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const noexcept {
  sqlite::finalize(statement);
}

Statement::Statement(Database& database, std::string_view text) : database_(database) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite::prepare_v2(database.handle(), text.data(), static_cast<int>(text.size()),
                                      &statement, nullptr);
  statement_.reset(statement);
  require(code);
}

bool Statement::step() {
  const int code = sqlite::step(statement_.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) database_.fail(code);
  return code == SQLITE_ROW;
}

void Statement::execute() {
  static_cast<void>(step());
  require(sqlite::reset(statement_.get()));
}

void Statement::bind(int place, std::int64_t number) {
  require(sqlite::bind_int64(statement_.get(), place, number));
}

void Statement::bind(int place, std::string_view text) {
  // A null pointer would be a null value.
  const char* const bytes = text.empty() ? "" : text.data();
  require(
      sqlite::bind_text64(statement_.get(), place, bytes, text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::bindNull(int place) { require(sqlite::bind_null(statement_.get(), place)); }

bool Statement::isNull(int column) const {
  return sqlite::column_type(statement_.get(), column) == SQLITE_NULL;
}

bool Statement::isInteger(int column) const {
  return sqlite::column_type(statement_.get(), column) == SQLITE_INTEGER;
}

bool Statement::isText(int column) const {
  return sqlite::column_type(statement_.get(), column) == SQLITE_TEXT;
}

std::int64_t Statement::integer(int column) const {
  return sqlite::column_int64(statement_.get(), column);
}

std::string_view Statement::text(int column) const {
  const auto* const bytes =
      reinterpret_cast<const char*>(sqlite::column_text(statement_.get(), column));
  if (bytes == nullptr) throw std::bad_alloc();
  return {bytes, static_cast<std::size_t>(sqlite::column_bytes(statement_.get(), column))};
}

void Statement::require(int code) const {
  if (code != SQLITE_OK) database_.fail(code);
}

}  // namespace host
