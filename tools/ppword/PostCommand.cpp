#include <unistd.h>

#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "host/system/ListenerScope.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "post/generator/Generator.h"
#include "post/job/JobReader.h"
#include "post/job/JobSetup.h"
#include "post/toolpath/LineReader.h"
#include "post/toolpath/ToolPath.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Kinds.h"
#include "tools/ppword/LoadReport.h"
#include "tools/ppword/PostOutput.h"
#include "tools/ppword/PostReport.h"
#include "tools/ppword/PostTable.h"
#include "tools/ppword/Progress.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"

namespace {

void requireOther(const std::string& output, const std::string& input) {
  if (isSameFile(output, input)) {
    throw UsageError{"the output would replace the input " + output};
  }
}

// The tool path of a run: a job or a listing.
class ToolPathInput {
 public:
  explicit ToolPathInput(const PostOptions& options)
      : options_(options), lines_(std::make_unique<host::LineReader>(options.job)) {
    if (host::recogniseToolPath(*lines_) == host::ToolPathKind::Listing) return;
    if (options.units || options.rotary) {
      throw UsageError{"--units and --rotary are for listings; a job states its own"};
    }
    job_.emplace(std::move(lines_));
  }

  /// Opens a listing with the words of the document, or sets up the document for a job.
  void setUp(host::Document& document) {
    if (job_) {
      setup_.emplace(job_->header(), document);
    } else {
      listing_.emplace(std::move(lines_), host::ListingOptions{options_.units, options_.rotary,
                                                               host::vocabularyOf(document)});
    }
  }

  [[nodiscard]] host::ToolPathReader& events() {
    if (listing_) return *listing_;
    return *job_;
  }
  /// Null for a listing.
  [[nodiscard]] const host::JobHeader* header() const { return job_ ? &job_->header() : nullptr; }
  [[nodiscard]] const host::ListingReader* listing() const {
    return listing_ ? &*listing_ : nullptr;
  }

 private:
  const PostOptions& options_;
  std::unique_ptr<host::LineReader> lines_;
  std::optional<host::ListingReader> listing_;
  std::optional<host::JobReader> job_;
  std::optional<host::JobSetup> setup_;
};

// The document file of a run: that of the user, that of the job's header, or none.
std::string documentFile(const PostOptions& options, const host::JobHeader* header) {
  if (!options.document.empty() || header == nullptr || header->document.empty()) {
    return options.document;
  }
  const auto folder = std::filesystem::path(options.job == "-" ? "" : options.job).parent_path();
  return (folder / header->document).string();
}

KEPVar<host::Document> documentOf(const PostOptions& options, const host::JobHeader* header) {
  const std::string file = documentFile(options, header);
  if (file.empty()) return host::newDocument();
  requireOther(options.output, file);
  KEPVar<host::Document> document = host::openDocument(file);
  warnOfOldVersion(*document, file);
  return document;
}

void reportRun(const PostOptions& options, const PostReport& report, std::string_view refusal,
               const LoadReport& load, const host::Document& document) {
  if (options.format == OutputFormat::ForPrograms) {
    Json json = reportJson(report, refusal.empty());
    if (options.verbose) json["load"] = load.json(document);
    writeMessage(documentText(json));
    return;
  }
  if (options.verbose) writeMessage("load report:\n" + load.text(document));
  writeMessage(reportText(report, refusal, options.verbose));
}

// Loads the table of the run, and sets up its input and document.
PostTable setUp(const PostOptions& options, const KEPVar<host::Document>& document,
                ToolPathInput& input, LoadReport& load) {
  const host::ListenerScope scope(load);
  PostTable table;
  if (!options.table.empty()) loadGivenTable(*document, options.table, table);
  input.setUp(*document);
  if (input.header() != nullptr) loadNamedTable(document, *input.header(), table);
  return table;
}

ExitStatus generate(const PostOptions& options) {
  ToolPathInput input(options);
  const KEPVar<host::Document> document = documentOf(options, input.header());
  LoadReport load;
  const PostTable table = setUp(options, document, input, load);
  requireOther(options.output, table.path);
  const Strictness strictness(options.strictness);
  PostOutput output(options.output, strictness.isStrict());
  const std::string name = options.job == "-" ? "standard input" : options.job;
  host::Generator generator(document, name, output.lines());
  {
    const bool shown = options.format == OutputFormat::ForPeople && isatty(STDERR_FILENO) == 1;
    Progress progress(input.events(), shown);
    generator.run(progress);
  }
  const PostReport report{generator.summary(), input.listing(), load.missing(), table,
                          options.output};
  const std::string refusal = refusalOf(report, strictness);
  if (refusal.empty()) output.finish();
  reportRun(options, report, refusal, load, *document);
  return refusal.empty() ? ExitStatus::Done : ExitStatus::Refused;
}

ExitStatus refuse(const PostOptions& options, const host::Diagnostic& diagnostic) {
  if (options.format == OutputFormat::ForPrograms) {
    writeMessage(documentText({{"file", textJson(options.job)},
                               {"written", false},
                               {"diagnostics", Json::array({diagnosticJson(diagnostic)})}}));
  } else {
    reportDiagnostic(diagnostic);
  }
  return ExitStatus::Refused;
}

}  // namespace

ExitStatus postJob(const PostOptions& options) {
  try {
    requireOther(options.output, options.job == "-" ? "/dev/stdin" : options.job);
    requireOther(options.output, options.table);
    return generate(options);
  } catch (const Refusal& refusal) {
    return refuse(options, refusal.diagnostic);
  } catch (const host::InputError& error) {
    return refuse(options, host::inputDiagnostic(error));
  } catch (const host::DocumentError& error) {
    return refuse(options, documentDiagnostic(error));
  }
}
