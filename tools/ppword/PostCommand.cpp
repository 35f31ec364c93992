#include "tools/ppword/PostCommand.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "inspect/diagnostics/DiagnosticText.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "post/generator/Generator.h"
#include "post/job/JobReader.h"
#include "post/job/JobSetup.h"
#include "post/output/OutputFile.h"
#include "post/toolpath/InputError.h"
#include "post/toolpath/LineReader.h"
#include "post/toolpath/SourceKind.h"
#include "tools/ppword/HeldOutput.h"
#include "tools/ppword/LoadReport.h"
#include "tools/ppword/PostReport.h"
#include "tools/ppword/PostTable.h"
#include "tools/ppword/Progress.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/TableCheck.h"

namespace {

// A run that ends early because of its arguments.
struct UsageError {
  std::string message;
};

bool isRegularFile(const std::string& path) {
  struct stat state {};
  return stat(path.c_str(), &state) == 0 && S_ISREG(state.st_mode);
}

bool isSameFile(const std::string& left, const std::string& right) {
  struct stat leftState {};
  struct stat rightState {};
  return isRegularFile(left) && stat(left.c_str(), &leftState) == 0 &&
         stat(right.c_str(), &rightState) == 0 && leftState.st_dev == rightState.st_dev &&
         leftState.st_ino == rightState.st_ino;
}

void requireOther(const std::string& output, const std::string& input) {
  if (isSameFile(output, input)) {
    throw UsageError{"the output would replace the input " + output};
  }
}

// The tool path of a run: a job or a listing.
class Source {
 public:
  explicit Source(const PostOptions& options)
      : options_(options), lines_(std::make_unique<host::LineReader>(options.job)) {
    if (host::recogniseSource(*lines_) == host::SourceKind::Listing) return;
    if (options.units || options.rotary) {
      throw UsageError{"--units and --rotary are for listings; a job states its own"};
    }
    job_.emplace(std::move(lines_));
  }

  /// Reads a listing for the document's words; sets the document up as a job's header says.
  void setUp(host::Document& document) {
    if (job_) {
      setup_.emplace(job_->header(), document);
    } else {
      listing_.emplace(std::move(lines_), host::ListingOptions{options_.units, options_.rotary,
                                                               host::listingWords(document)});
    }
  }

  [[nodiscard]] host::ToolPathSource& events() {
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

// What the text is written to: "-" also for a path that leads to the file behind the standard
// output, which others write too and which is not to be replaced.
std::string placeOf(const std::string& output) {
  return output.empty() || isSameFile(output, "/dev/stdout") ? "-" : output;
}

// Where the text of a run goes. In a strict run what cannot be taken back is held until the end.
class Output {
 public:
  explicit Output(const PostOptions& options) : place_(placeOf(options.output)), file_(place_) {
    struct stat state {};
    const bool direct =
        place_ == "-" || (stat(place_.c_str(), &state) == 0 && !S_ISREG(state.st_mode));
    if (options.strict && direct) held_.emplace();
  }

  [[nodiscard]] host::LineSink& lines() {
    if (held_) return *held_;
    return file_;
  }
  void finish() {
    if (held_) held_->release(file_);
    file_.finish();
  }

 private:
  std::string place_;
  host::OutputFile file_;
  std::optional<HeldOutput> held_;
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

void reportRun(const PostOptions& options, const PostReport& report, bool written,
               const LoadReport& load, const host::Document& document) {
  if (options.format == OutputFormat::Json) {
    Json json = reportJson(report, written);
    if (options.verbose) json["load"] = load.json(document);
    writeMessage(documentText(json));
    return;
  }
  if (options.verbose) writeMessage("load report:\n" + load.text(document));
  writeMessage(reportText(report, written));
}

ExitStatus generate(const PostOptions& options) {
  Source source(options);
  const KEPVar<host::Document> document = documentOf(options, source.header());
  LoadReport load;
  PostTable table;
  if (!options.table.empty()) loadGivenTable(*document, options.table, table);
  source.setUp(*document);
  if (source.header() != nullptr) loadNamedTable(document, *source.header(), table);
  requireOther(options.output, table.path);
  Output output(options);
  const std::string name = options.job == "-" ? "standard input" : options.job;
  host::Generator generator(document, name, output.lines());
  {
    const bool shown = options.format == OutputFormat::Text && isatty(STDERR_FILENO) == 1;
    Progress progress(source.events(), shown);
    generator.run(progress);
  }
  const PostReport report{generator.summary(), source.listing(), load.missing(), table,
                          options.output};
  const bool written = !options.strict || missingPieces(report) == 0;
  if (written) output.finish();
  reportRun(options, report, written, load, *document);
  return written ? ExitStatus::Done : ExitStatus::Refused;
}

ExitStatus refuse(const PostOptions& options, const host::Diagnostic& diagnostic) {
  if (options.format == OutputFormat::Json) {
    writeMessage(documentText({{"file", textJson(options.job)},
                               {"written", false},
                               {"diagnostics", Json::array({diagnosticJson(diagnostic)})}}));
  } else {
    tell(diagnostic);
  }
  return ExitStatus::Refused;
}

}  // namespace

ExitStatus postJob(const PostOptions& options) {
  try {
    requireOther(options.output, options.job == "-" ? "/dev/stdin" : options.job);
    requireOther(options.output, options.table);
    return generate(options);
  } catch (const UsageError& error) {
    writeMessage("ppword post: " + host::terminalSafe(error.message) +
                 "\nTry 'ppword post --help'.\n");
    return ExitStatus::Usage;
  } catch (const Refusal& refusal) {
    return refuse(options, refusal.diagnostic);
  } catch (const host::InputError& error) {
    return refuse(options, host::inputDiagnostic(error));
  } catch (const host::DocumentError& error) {
    return refuse(options, documentDiagnostic(error));
  }
}
