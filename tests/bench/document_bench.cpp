// Opening and saving a document with many PP commands, against a loop written by hand that reads
// all rows of the file.

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "KEPIMfgPPWordFactory.h"
#include "host/document/DocumentFile.h"

namespace {

/// A document of so many PP commands in a file that goes with the object.
class DocumentFile {
 public:
  explicit DocumentFile(int commands) {
    const KEPIMfgPPWordFactory_var factory = document_->features();
    for (int i = 0; i < commands; ++i) {
      KEPIMfgPPCommand_var command;
      factory->CreatePPCommand(command, "NC_TOOL_CHANGE", 1);
    }
    host::saveDocument(*document_, path());
  }
  DocumentFile(const DocumentFile&) = delete;
  DocumentFile& operator=(const DocumentFile&) = delete;
  ~DocumentFile() { std::filesystem::remove(path_); }

  [[nodiscard]] std::string path() const { return path_.string(); }
  [[nodiscard]] host::Document& document() const { return *document_; }

 private:
  std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                ("ppword_bench." + std::to_string(getpid()) + ".ppdoc");
  KEPVar<host::Document> document_ = host::newDocument();
};

void openDocument(benchmark::State& state) {
  const DocumentFile file(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto document = host::openDocument(file.path());
    benchmark::DoNotOptimize(document.Get());
  }
}
BENCHMARK(openDocument)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

void saveDocument(benchmark::State& state) {
  const DocumentFile file(static_cast<int>(state.range(0)));
  for (auto _ : state) host::saveDocument(file.document(), file.path());
}
BENCHMARK(saveDocument)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

/// Every column of every row as text, into one sum of lengths.
void readRows(benchmark::State& state) {
  const DocumentFile file(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    sqlite3* connection = nullptr;
    if (sqlite3_open(file.path().c_str(), &connection) != SQLITE_OK) state.SkipWithError("no file");
    long length = 0;
    for (const char* query :
         {"SELECT * FROM feature ORDER BY id", "SELECT * FROM attribute ORDER BY feature,position",
          "SELECT * FROM text ORDER BY feature,attribute,position"}) {
      sqlite3_stmt* rows = nullptr;
      sqlite3_prepare_v2(connection, query, -1, &rows, nullptr);
      while (sqlite3_step(rows) == SQLITE_ROW) {
        for (int i = 0; i < sqlite3_column_count(rows); ++i) {
          length += sqlite3_column_bytes(rows, i);
        }
      }
      sqlite3_finalize(rows);
    }
    benchmark::DoNotOptimize(length);
    sqlite3_close(connection);
  }
}
BENCHMARK(readRows)->Arg(10'000)->Unit(benchmark::kMillisecond);

}  // namespace
