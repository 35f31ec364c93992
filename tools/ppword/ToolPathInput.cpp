#include "tools/ppword/ToolPathInput.h"

#include <filesystem>
#include <functional>
#include <set>
#include <utility>

#include "host/document/DocumentFile.h"
#include "host/system/ListenerScope.h"
#include "post/toolpath/LineReader.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/LoadedTables.h"
#include "tools/ppword/ReaderWords.h"
#include "tools/ppword/Reading.h"
#include "tools/ppword/Refusal.h"

namespace {

constexpr std::string_view kStartMacro = "NC_START_MACRO";
constexpr std::string_view kOrigin = "NC_ORIGIN";

/// Notices which NC instructions a table that is loaded has.
class LoadedInstructions final : public KEPMfgPPWordListener {
 public:
  void TableEntry(Section section, int /*number*/, std::string_view name,
                  Outcome outcome) override {
    const bool isLoaded = outcome == Outcome::Created || outcome == Outcome::Replaced;
    const bool isCommand = section == Section::Command || section == Section::Sequence;
    if (isCommand && isLoaded && (name == kStartMacro || name == kOrigin)) names_.emplace(name);
  }
  [[nodiscard]] bool has(std::string_view name) const { return names_.contains(name); }

 private:
  std::set<std::string, std::less<>> names_;
};

std::optional<Lines> linesOf(const host::Document& document, std::string_view instruction) {
  for (const InstructionEntry& entry : documentContents(document).commands) {
    if (entry.name == instruction) return entry.lines;
  }
  return std::nullopt;
}

/// True for a document whose lines of an instruction are not those of a new one: a table brought
/// them.
bool hasOwn(const host::Document& document, std::string_view instruction) {
  return linesOf(document, instruction) != linesOf(*host::newDocument(), instruction);
}

/// The tool table that an option names; null without one.
std::shared_ptr<const host::ToolTable> toolsOf(const ToolPathOptions& options) {
  if (options.tools.empty()) return nullptr;
  return std::make_shared<host::ToolTable>(
      host::readToolTable(options.tools, options.machineUnits));
}

}  // namespace

ToolPathInput::ToolPathInput(const ToolPathOptions& options, LoadedTables* tables)
    : options_(options),
      tables_(tables),
      lines_(std::make_unique<host::LineReader>(options.job)),
      reading_(lines_.get()) {
  kind_ = host::recogniseToolPath(*lines_);
  refuseOptions();
  if (kind_ == host::ToolPathKind::Job) job_.emplace(std::move(lines_));
}

void ToolPathInput::refuseOptions() const {
  using enum ReadingScope;
  if (kind_ == host::ToolPathKind::Job && names(options_, ListingsAndPrograms)) {
    throw UsageError{readingNames(ListingsAndPrograms) + " are for listings; a job states its own"};
  }
  if (!isProgram() && names(options_, Programs)) {
    throw UsageError{readingNames(Programs) + " are for NC programs"};
  }
}

std::filesystem::path ToolPathInput::folder() const {
  return std::filesystem::path(options_.job == "-" ? "" : options_.job).parent_path();
}

host::ProgramListing ToolPathInput::list() {
  if (!isProgram()) throw UsageError{"--listing is for NC programs"};
  host::ProgramListing listing =
      host::listProgram(*lines_, {folder().string(), toolsOf(options_), options_.machine,
                                  options_.machineUnits, options_.unknownTools, options_.timeout});
  if (options_.machine.empty()) machineWords_ = std::move(listing.machineWords);
  return listing;
}

std::string ToolPathInput::documentFile() const {
  if (!options_.document.empty() || !job_ || job_->header().document.empty()) {
    return options_.document;
  }
  return (folder() / job_->header().document).string();
}

std::string ToolPathInput::namedTable() const {
  PostTable table;
  if (job_) findNamedTable(job_->header(), table);
  return table.path;
}

void ToolPathInput::openDocument() {
  const std::string file = documentFile();
  if (tables_ != nullptr) {
    table_.path = options_.table;
    table_.given = !options_.table.empty();
    if (job_) findNamedTable(job_->header(), table_);
    document_ = tables_->documentWith(file, table_.path);
    return;
  }
  document_ = file.empty() ? host::newDocument() : openDocumentFile(file);
  if (!options_.table.empty()) loadGivenTable(*document_, options_.table, table_);
}

void ToolPathInput::open() {
  LoadedInstructions loaded;
  {
    const host::ListenerScope scope(loaded);
    openDocument();
  }
  const bool isStored = !documentFile().empty();
  const auto isOwn = [&](std::string_view instruction) {
    return loaded.has(instruction) || (isStored && hasOwn(*document_, instruction));
  };
  setUp({{}, isOwn(kStartMacro), isOwn(kOrigin)});
  if (job_ && tables_ == nullptr) loadNamedTable(document_, job_->header(), table_);
}

// Opens a listing with the words of the document, or sets up the document for a job.
void ToolPathInput::setUp(host::TableWords words) {
  if (job_) {
    setup_.emplace(job_->header(), *document_);
    return;
  }
  words.textWords = textWords();
  host::ListingOptions reading{
      options_.units,    options_.rotary,          host::vocabularyOf(*document_, words),
      options_.chord,    options_.helicesAsChords, options_.convertsOrigins,
      options_.comments, toolsOf(options_)};
  if (isProgram()) {
    host::ProgramListing program = list();
    lines_ = std::move(program.lines);
    reading_ = lines_.get();
    reading.blocks = std::move(program.places);
  }
  listing_.emplace(std::move(lines_), std::move(reading));
}

std::vector<std::string> ToolPathInput::textWords() const {
  return table_.path.empty() ? std::vector<std::string>{} : textWordsOf(table_.path);
}

std::shared_ptr<const ReaderWords> ToolPathInput::readerWords() const {
  if (tables_ != nullptr) return tables_->readerWords(documentFile(), table_.path);
  return std::make_shared<ReaderWords>(*document_, table_.path);
}

host::ToolPathReader& ToolPathInput::events() {
  if (listing_) return *listing_;
  return *job_;
}

std::string ToolPathInput::name() const {
  return options_.job == "-" ? "standard input" : options_.job;
}
