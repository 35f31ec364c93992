// Loading a table into a document that holds the default catalogue, listing its entries, and asking
// for words and codes.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "KEPIMfgPPWordContainer.h"
#include "KEPMfgPPWordUtilities.h"
#include "host/modeler/Document.h"
#include "language/table/TableEntries.h"

namespace {

/// A table in a file that goes with the object.
class TableFile {
 public:
  explicit TableFile(const std::string& text) { std::ofstream(path_) << text; }
  TableFile(const TableFile&) = delete;
  TableFile& operator=(const TableFile&) = delete;
  ~TableFile() { std::filesystem::remove(path_); }

  [[nodiscard]] KEPUnicodeString path() const { return {path_.string()}; }

 private:
  std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                ("ppword_bench." + std::to_string(getpid()) + ".pptable");
};

/// An NC instruction with an insert and two sequences: about 340 bytes.
std::string instruction(int number) {
  const std::string name = "NC_USER_INSTRUCTION_" + std::to_string(100000 + number);
  return "*START_NC_INSTRUCTION " + name + "\nPPRINT USER INSTRUCTION " + name +
         "\n*INSERT NC_USER_INSTRUCTION_100000\n"
         "GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT,%MFG_XAXIS,%MFG_YAXIS,%MFG_ZAXIS\n"
         "*START_SEQUENCE\nGOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n"
         "*START_SEQUENCE\nGODLTA/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n*END\n";
}

std::string tableOfInstructions(long count) {
  std::string text = "*START_NC_INSTRUCTION NC_USER_INSTRUCTION_100000\nRAPID\n*END\n";
  for (int i = 1; i <= count; ++i) text += instruction(i);
  return text;
}

void loadTable(benchmark::State& state) {
  const std::string text = tableOfInstructions(state.range(0));
  const TableFile table(text);
  for (auto _ : state) {
    const auto document = host::newDocument();
    if (KEPFailed(document->ppWordContainer()->LoadPPWordTable(table.path()))) {
      state.SkipWithError("table refused");
    }
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(loadTable)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);

/// The entries that `ppword list` shows.
void listTable(benchmark::State& state) {
  const std::string text = tableOfInstructions(state.range(0));
  for (auto _ : state) {
    ppword::TableEntries entries(text);
    benchmark::DoNotOptimize(entries.commands());
    benchmark::DoNotOptimize(entries.lists());
    benchmark::DoNotOptimize(entries.formats());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(listTable)->Arg(300)->Arg(3000)->Arg(30000)->Unit(benchmark::kMillisecond);

/// A process-wide list of `count` words while the object lives.
class StoredWords {
 public:
  explicit StoredWords(long count) {
    std::string text = "*START_MINOR_WORDS\n";
    for (long i = 0; i < count; ++i) {
      words.emplace_back("WORD" + std::to_string(100000 + i));
      text += "WORD" + std::to_string(100000 + i) + ',' + std::to_string(i) + '\n';
    }
    const TableFile table(text + "*END\n");
    isStored = KEPSucceeded(KEPMfgPPWordUtilities::StoreListOfPPWords(table.path()));
  }
  StoredWords(const StoredWords&) = delete;
  StoredWords& operator=(const StoredWords&) = delete;
  ~StoredWords() { KEPMfgPPWordUtilities::DeleteListOfPPWords(); }

  std::vector<KEPString> words;
  bool isStored = false;
};

/// Words spread over the whole list.
void codeOfWord(benchmark::State& state) {
  const StoredWords stored(state.range(0));
  if (!stored.isStored) state.SkipWithError("words not stored");
  std::size_t next = 0;
  for (auto _ : state) {
    int kind = 0;
    int code = 0;
    next = (next + 31) % stored.words.size();
    benchmark::DoNotOptimize(KEPMfgPPWordUtilities::GetClfileCode(stored.words[next], kind, code));
  }
}
BENCHMARK(codeOfWord)->Arg(50)->Arg(5000);

void wordOfCode(benchmark::State& state) {
  const StoredWords stored(state.range(0));
  if (!stored.isStored) state.SkipWithError("words not stored");
  int code = 0;
  for (auto _ : state) {
    KEPString word;
    code = (code + 31) % static_cast<int>(state.range(0));
    benchmark::DoNotOptimize(KEPMfgPPWordUtilities::GetAptWord(code, word));
  }
}
BENCHMARK(wordOfCode)->Arg(50)->Arg(5000);

}  // namespace
