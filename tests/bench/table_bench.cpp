// Loading a table into a document that holds the default catalogue.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "KEPIMfgPPWordContainer.h"
#include "host/modeler/Document.h"

namespace {

/// A table of `commands` NC instructions in a file that goes with the object.
class TableFile {
 public:
  explicit TableFile(int commands) {
    std::ofstream file(path_);
    for (int i = 0; i < commands; ++i) {
      file << "*START_NC_INSTRUCTION NC_USER" << i
           << "\nPPRINT USER COMMAND\nGOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n";
    }
  }
  TableFile(const TableFile&) = delete;
  TableFile& operator=(const TableFile&) = delete;
  ~TableFile() { std::filesystem::remove(path_); }

  [[nodiscard]] KEPUnicodeString path() const { return {path_.string()}; }

 private:
  std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                ("ppword_bench." + std::to_string(getpid()) + ".pptable");
};

void loadTable(benchmark::State& state) {
  const TableFile table(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto document = host::newDocument();
    if (KEPFailed(document->ppWordContainer()->LoadPPWordTable(table.path()))) {
      state.SkipWithError("table refused");
    }
  }
}
BENCHMARK(loadTable)->Arg(30)->Arg(300)->Unit(benchmark::kMillisecond);

}  // namespace
