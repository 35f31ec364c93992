#include "tools/ppword/LoadedTables.h"

#include "host/system/ListenerScope.h"
#include "tools/ppword/ReaderWords.h"
#include "tools/ppword/Refusal.h"

namespace {

// More are forgotten: what is stored stays small.
constexpr std::size_t kMostLoaded = 4;

}  // namespace

class LoadedTables::Recorder final : public KEPMfgPPWordListener {
 public:
  explicit Recorder(std::vector<Entry>& entries) : entries_(entries) {}
  void TableEntry(Section section, int number, std::string_view name, Outcome outcome) override {
    entries_.push_back({section, number, std::string(name), outcome});
  }

 private:
  std::vector<Entry>& entries_;
};

KEPVar<host::Document> LoadedTables::documentWith(const std::string& documentFile,
                                                  const std::string& table) {
  const std::pair key(documentFile, table);
  auto known = loaded_.find(key);
  if (known == loaded_.end()) {
    Loaded loaded = load(documentFile, table);
    if (loaded_.size() >= kMostLoaded) loaded_.clear();
    known = loaded_.emplace(key, std::move(loaded)).first;
  } else if (auto* const listener = KEPMfgPPWordListener::Current()) {
    for (const Entry& entry : known->second.entries) {
      listener->TableEntry(entry.section, entry.number, entry.name, entry.outcome);
    }
  }
  return host::copyOf(*known->second.document);
}

std::shared_ptr<const ReaderWords> LoadedTables::readerWords(const std::string& documentFile,
                                                             const std::string& table) {
  Loaded& loaded = loaded_.at({documentFile, table});
  if (!loaded.words) loaded.words = std::make_shared<ReaderWords>(*loaded.document, table);
  return loaded.words;
}

LoadedTables::Loaded LoadedTables::load(const std::string& documentFile, const std::string& table) {
  Loaded loaded;
  loaded.document = documentFile.empty() ? host::newDocument() : openDocumentFile(documentFile);
  Recorder recorder(loaded.entries);
  const host::ListenerScope scope(recorder);
  if (!table.empty()) loadTable(*loaded.document, table);
  return loaded;
}
