// Opening and saving a document with many PP commands, against a loop written by hand that reads
// all rows of the file.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <stdexcept>
#include <string>

#include "KEPIMfgPPWordFactory.h"
#include "host/document/DocumentFile.h"
#include "tests/bench/ScratchFile.h"
#include "tests/bench/Works.h"

namespace {

/// A document of so many PP commands, and its file.
struct StoredDocument {
  explicit StoredDocument(int commands) {
    const KEPIMfgPPWordFactory_var factory = document->features();
    for (int i = 0; i < commands; ++i) {
      KEPIMfgPPCommand_var command;
      factory->CreatePPCommand(command, "NC_TOOL_CHANGE", 1);
    }
    save();
  }

  void save() const { host::saveDocument(*document, file.path()); }

  ScratchFile file;
  KEPVar<host::Document> document = host::newDocument();
};

Work openDocument(int commands) {
  return {"open/" + std::to_string(commands), 1, [commands] {
            const auto stored = std::make_shared<StoredDocument>(commands);
            return [stored] {
              const auto document = host::openDocument(stored->file.path());
              benchmark::DoNotOptimize(document.Get());
            };
          }};
}

Work saveDocument(int commands) {
  return {"save/" + std::to_string(commands), 1, [commands] {
            const auto stored = std::make_shared<StoredDocument>(commands);
            return [stored] { stored->save(); };
          }};
}

long lengthOfRows(sqlite3* connection, const char* query) {
  long length = 0;
  sqlite3_stmt* rows = nullptr;
  sqlite3_prepare_v2(connection, query, -1, &rows, nullptr);
  while (sqlite3_step(rows) == SQLITE_ROW) {
    for (int i = 0; i < sqlite3_column_count(rows); ++i) length += sqlite3_column_bytes(rows, i);
  }
  sqlite3_finalize(rows);
  return length;
}

/// Every column of every row as text, into one sum of lengths.
void readRows(const std::string& path) {
  sqlite3* connection = nullptr;
  if (sqlite3_open(path.c_str(), &connection) != SQLITE_OK) throw std::runtime_error("no file");
  for (const char* query :
       {"SELECT * FROM feature ORDER BY id", "SELECT * FROM attribute ORDER BY feature,position",
        "SELECT * FROM text ORDER BY feature,attribute,position"}) {
    benchmark::DoNotOptimize(lengthOfRows(connection, query));
  }
  sqlite3_close(connection);
}

Work readDocument(int commands) {
  return {"rows/" + std::to_string(commands), 1, [commands] {
            const auto stored = std::make_shared<StoredDocument>(commands);
            return [stored] { readRows(stored->file.path()); };
          }};
}

}  // namespace

Works documentWorks() {
  return {openDocument(1'000), openDocument(10'000), saveDocument(1'000), saveDocument(10'000),
          readDocument(10'000)};
}
