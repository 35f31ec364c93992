#include "tools/ppword/ToolPathInput.h"

#include <filesystem>
#include <utility>

#include "host/document/DocumentFile.h"
#include "post/toolpath/LineReader.h"
#include "tools/ppword/Refusal.h"

ToolPathInput::ToolPathInput(const ToolPathOptions& options)
    : options_(options), lines_(std::make_unique<host::LineReader>(options.job)) {
  if (host::recogniseToolPath(*lines_) == host::ToolPathKind::Listing) return;
  if (options.units || options.rotary) {
    throw UsageError{"--units and --rotary are for listings; a job states its own"};
  }
  job_.emplace(std::move(lines_));
}

std::string ToolPathInput::documentFile() const {
  if (!options_.document.empty() || !job_ || job_->header().document.empty()) {
    return options_.document;
  }
  const auto folder = std::filesystem::path(options_.job == "-" ? "" : options_.job).parent_path();
  return (folder / job_->header().document).string();
}

KEPVar<host::Document> ToolPathInput::openedDocument() const {
  const std::string file = documentFile();
  return file.empty() ? host::newDocument() : openDocumentFile(file);
}

void ToolPathInput::open() {
  document_ = openedDocument();
  if (!options_.table.empty()) loadGivenTable(*document_, options_.table, table_);
  setUp();
  if (job_) loadNamedTable(document_, job_->header(), table_);
}

// Opens a listing with the words of the document, or sets up the document for a job.
void ToolPathInput::setUp() {
  if (job_) {
    setup_.emplace(job_->header(), *document_);
  } else {
    listing_.emplace(std::move(lines_), host::ListingOptions{options_.units, options_.rotary,
                                                             host::vocabularyOf(*document_)});
  }
}

host::ToolPathReader& ToolPathInput::events() {
  if (listing_) return *listing_;
  return *job_;
}

std::string ToolPathInput::name() const {
  return options_.job == "-" ? "standard input" : options_.job;
}
