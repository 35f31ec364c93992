#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace host {

class Statement;

/// A connection to one SQLite file that is not trusted: nothing in the file can run, load or reach
/// anything, and a name is never a URI. Every failure raises a DocumentError of the file.
class Database {
 public:
  /// Opens a file that is there. `name` is the file's name in errors.
  Database(const std::string& path, std::string_view name);

  void run(const std::string& statements);
  /// The one number that a statement returns.
  [[nodiscard]] std::int64_t queryNumber(std::string_view statement);

  /// Begins a transaction that only reads, or one that other connections can read beside and none
  /// can write. It is undone unless it is committed.
  void beginReading();
  void beginWriting();
  /// Empty, or why it failed: before the change, or after it.
  [[nodiscard]] std::string commit();

  /// Raises the error of a result code, which is not success.
  [[noreturn]] void fail(int code) const;
  /// Raises the error of a file that holds something wrong.
  [[noreturn]] void refuse(std::string_view reason) const;

  [[nodiscard]] sqlite3* handle() const noexcept { return connection_.get(); }
  [[nodiscard]] const std::string& name() const noexcept { return name_; }

 private:
  struct Close {
    void operator()(sqlite3* connection) const noexcept;
  };

  void harden();
  void requireRollbackJournal();
  void requireOwnJournal();

  std::string name_;
  bool writing_ = false;
  std::unique_ptr<sqlite3, Close> connection_;
};

/// A prepared statement of a database, which must outlive it. Columns count from 0, places of
/// values from 1.
class Statement {
 public:
  Statement(Database& database, std::string_view text);

  /// True when there is a row, false at the end.
  [[nodiscard]] bool step();
  /// Runs a statement that returns no rows, and makes it ready to run again.
  void execute();

  void bind(int place, std::int64_t number);
  void bind(int place, std::string_view text);
  void bindNull(int place);

  [[nodiscard]] bool isNull(int column) const;
  [[nodiscard]] bool isInteger(int column) const;
  [[nodiscard]] bool isText(int column) const;
  [[nodiscard]] std::int64_t integer(int column) const;
  /// Valid until the next step.
  [[nodiscard]] std::string_view text(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const noexcept;
  };

  void require(int code) const;

  Database& database_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

}  // namespace host
