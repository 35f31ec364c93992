// Loading a table into a document that holds the default catalogue, listing its entries, and asking
// for words and codes.

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "KEPIMfgPPWordContainer.h"
#include "KEPMfgPPWordUtilities.h"
#include "host/modeler/Document.h"
#include "language/table/TableEntries.h"
#include "tests/bench/ScratchFile.h"
#include "tests/bench/Works.h"

namespace {

/// An NC instruction with an insert and two sequences: about 340 bytes.
std::string instruction(int number) {
  const std::string name = "NC_USER_INSTRUCTION_" + std::to_string(100000 + number);
  return "*START_NC_INSTRUCTION " + name + "\nPPRINT USER INSTRUCTION " + name +
         "\n*INSERT NC_USER_INSTRUCTION_100000\n"
         "GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT,%MFG_XAXIS,%MFG_YAXIS,%MFG_ZAXIS\n"
         "*START_SEQUENCE\nGOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n"
         "*START_SEQUENCE\nGODLTA/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n*END\n";
}

std::string tableOfInstructions(int count) {
  std::string text = "*START_NC_INSTRUCTION NC_USER_INSTRUCTION_100000\nRAPID\n*END\n";
  for (int i = 1; i <= count; ++i) text += instruction(i);
  return text;
}

Work loadTable(int commands) {
  return {"load/" + std::to_string(commands), 1, [commands] {
            const auto table = std::make_shared<ScratchFile>(tableOfInstructions(commands));
            return [table] {
              const auto document = host::newDocument();
              const KEPUnicodeString path(table->path());
              if (KEPFailed(document->ppWordContainer()->LoadPPWordTable(path))) {
                throw std::runtime_error("table refused");
              }
            };
          }};
}

/// The entries that `ppword list` shows.
Work listTable(int commands) {
  return {"entries/" + std::to_string(commands), 1, [commands] {
            return [text = tableOfInstructions(commands)] {
              ppword::TableEntries entries(text);
              benchmark::DoNotOptimize(entries.commands());
              benchmark::DoNotOptimize(entries.lists());
              benchmark::DoNotOptimize(entries.formats());
            };
          }};
}

/// A process-wide list of `count` words while the object lives.
class StoredWords {
 public:
  explicit StoredWords(int count) {
    std::string text = "*START_MINOR_WORDS\n";
    for (int i = 0; i < count; ++i) {
      words.emplace_back("WORD" + std::to_string(100000 + i));
      text += "WORD" + std::to_string(100000 + i) + ',' + std::to_string(i) + '\n';
    }
    const ScratchFile table(text + "*END\n");
    const KEPUnicodeString path(table.path());
    if (KEPFailed(KEPMfgPPWordUtilities::StoreListOfPPWords(path))) {
      throw std::runtime_error("words not stored");
    }
  }
  StoredWords(const StoredWords&) = delete;
  StoredWords& operator=(const StoredWords&) = delete;
  ~StoredWords() { KEPMfgPPWordUtilities::DeleteListOfPPWords(); }

  /// Numbers of words spread over the whole list.
  std::size_t next() { return at_ = (at_ + 31) % words.size(); }

  std::vector<KEPString> words;

 private:
  std::size_t at_ = 0;
};

Work codeOfWord(int count) {
  return {"code/" + std::to_string(count), 1'000, [count] {
            const auto stored = std::make_shared<StoredWords>(count);
            return [stored] {
              int kind = 0;
              int code = 0;
              const KEPString& word = stored->words[stored->next()];
              benchmark::DoNotOptimize(KEPMfgPPWordUtilities::GetClfileCode(word, kind, code));
            };
          }};
}

Work wordOfCode(int count) {
  return {"word/" + std::to_string(count), 1'000, [count] {
            const auto stored = std::make_shared<StoredWords>(count);
            return [stored] {
              KEPString word;
              const int code = static_cast<int>(stored->next());
              benchmark::DoNotOptimize(KEPMfgPPWordUtilities::GetAptWord(code, word));
            };
          }};
}

}  // namespace

Works tableWorks() {
  return {loadTable(300), loadTable(3'000),  listTable(300), listTable(3'000), listTable(30'000),
          codeOfWord(50), codeOfWord(5'000), wordOfCode(50), wordOfCode(5'000)};
}
