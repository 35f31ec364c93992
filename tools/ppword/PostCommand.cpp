#include <filesystem>
#include <nlohmann/json.hpp>
#include <utility>

#include "inspect/diagnostics/Diagnostic.h"
#include "post/output/SameFile.h"
#include "post/toolpath/LineReader.h"
#include "tools/ppword/Kinds.h"
#include "tools/ppword/PostMap.h"
#include "tools/ppword/PostReport.h"
#include "tools/ppword/PostRun.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/ToolPathInput.h"

namespace {

// A map names its text, and explain reads the tool path again.
void requireMappable(const PostOptions& options) {
  if (options.map.empty()) return;
  if (options.map == "-") throw UsageError{"--map needs a file, not the standard output"};
  if (options.output.empty()) throw UsageError{"--map needs -o FILE, the text that it is about"};
  const auto isLasting = [](const std::string& file) {
    std::error_code error;
    return !file.starts_with("/dev/") && !std::filesystem::is_other(file, error);
  };
  if (options.job == "-" || !isLasting(options.job)) {
    throw UsageError{"--map needs a file as JOB: explain --map reads it again"};
  }
  if (!isLasting(options.output)) {
    throw UsageError{"--map needs a file as output: explain --map reads it again"};
  }
  if (host::isSamePlace(options.map, options.output)) {
    throw UsageError{"the map would replace the output " + options.output};
  }
}

// --listing takes what an NC program is run with, and nothing that is about the text.
void requireListable(const PostOptions& options) {
  const bool isAboutText = !options.table.empty() || !options.document.empty() ||
                           !options.map.empty() || !options.profile.empty() || options.verbose;
  if (isAboutText) {
    throw UsageError{"--listing takes no -t, -d, --map, --profile or -v: it writes no text"};
  }
}

void copyLines(host::LineReader& from, host::LineSink& to) {
  for (std::string_view line; from.next(line);) to.write(line);
}

// What is said of a listing.
PostOutcome listingOutcome(const PostOptions& options, const std::string& name,
                           const std::vector<host::MachineWord>& words, bool isRefused) {
  PostOutcome outcome;
  outcome.status = isRefused ? ExitStatus::Refused : ExitStatus::Done;
  outcome.report = {{"file", textJson(name)},
                    {"output", options.output.empty() ? Json(nullptr) : textJson(options.output)},
                    {"written", !isRefused},
                    {"machineCoordinates", machineWordsJson(words)}};
  for (const host::MachineWord& word : words) {
    host::Diagnostic finding;
    finding.severity = isRefused ? host::Severity::Error : host::Severity::Warning;
    finding.file = word.file;
    finding.line = word.line;
    finding.key = kMachineCoordinates;
    finding.message =
        word.name + " moves in machine coordinates, which are unknown without --machine";
    outcome.text += host::diagnosticText(finding, showsColours());
  }
  return outcome;
}

PostOutcome writeListing(const PostOptions& options) {
  requireListable(options);
  const Strictness strictness(options.strictness);
  ToolPathInput input(options);
  const host::ProgramListing listing = input.list();
  const auto& words = input.machineWords();
  const bool isRefused = !words.empty() && strictness.refuses(kMachineCoordinates);
  PostOutcome outcome = listingOutcome(options, input.name(), words, isRefused);
  if (isRefused) return outcome;
  PostOutput output(options.output, false, protectionOf(options.force));
  copyLines(*listing.lines, output.lines());
  output.finish();
  outcome.addDoubt(output.file());
  return outcome;
}

void placeNow(std::unique_ptr<PostOutput> text, PostMap* map, PostOutcome& outcome) {
  text->finish();
  outcome.addDoubt(text->file());
  if (map == nullptr) return;
  map->finish();
  outcome.addDoubt(map->file());
}

// What a run of one job does not have.
void requireSingle(const PostOptions& options) {
  if (options.jobs.size() > 1) throw UsageError{"more than one JOB needs --output-dir DIR"};
  if (options.processes != 1) throw UsageError{"-j needs --output-dir DIR"};
  if (options.format == OutputFormat::Records) {
    throw UsageError{"--format jsonl needs --output-dir DIR"};
  }
}

}  // namespace

ExitStatus postJob(const PostOptions& given) {
  if (given.quiet && given.verbose) throw UsageError{"-q and -v exclude each other"};
  if (given.profile == "-") throw UsageError{"--profile needs a name or a file"};
  if (!given.outputFolder.empty()) return postManyJobs(given);
  requireSingle(given);
  PostOptions options = given;
  options.job = given.jobs.front();
  requireOthers(options);
  requireMappable(options);
  const PostOutcome outcome = options.listing
                                  ? outcomeOf(options.job, [&] { return writeListing(options); })
                                  : postToolPath(options, nullptr, placeNow);
  if (options.quiet && outcome.status == ExitStatus::Done) return outcome.status;
  writeMessage(options.format == OutputFormat::ForPeople ? outcome.text
                                                         : documentText(outcome.report));
  return outcome.status;
}
