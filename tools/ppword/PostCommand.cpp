#include <unistd.h>

#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "host/system/ListenerScope.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "post/generator/Generator.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Kinds.h"
#include "tools/ppword/LoadReport.h"
#include "tools/ppword/PostMap.h"
#include "tools/ppword/PostOutput.h"
#include "tools/ppword/PostReport.h"
#include "tools/ppword/Progress.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/ToolPathInput.h"

namespace {

// Raises the mistake when the output or the map would replace what the run reads.
void requireOther(const PostOptions& options, const std::string& input) {
  for (const auto& [what, file] : {std::pair("output", options.output), {"map", options.map}}) {
    if (!isSameFile(file, input)) continue;
    throw UsageError{"the " + std::string(what) + " would replace the input " + file};
  }
}

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
  if (isSamePlace(options.map, options.output)) {
    throw UsageError{"the map would replace the output " + options.output};
  }
}

// Files that are written, but perhaps not for good, and why.
class Doubts {
 public:
  void add(const host::OutputFile& file) {
    if (!file.doubt().empty()) doubts_.emplace_back(file.name(), file.doubt());
  }
  void addTo(Json& report) const {
    for (const auto& [file, reason] : doubts_) {
      report["notCertain"].push_back({{"file", textJson(file)}, {"reason", reason}});
    }
  }
  void report() const {
    for (const auto& [file, reason] : doubts_) {
      const std::string text = (file + ' ') += host::doubtText(reason);
      writeMessage("ppword: error: " + host::terminalSafe(text) + '\n');
    }
  }
  [[nodiscard]] ExitStatus status() const {
    return doubts_.empty() ? ExitStatus::Done : ExitStatus::Unconfirmed;
  }

 private:
  std::vector<std::pair<std::string, std::string>> doubts_;
};

void reportRun(const PostOptions& options, const PostReport& report, std::string_view refusal,
               const Doubts& doubts, const LoadReport& load, const host::Document& document) {
  if (options.format == OutputFormat::ForPrograms) {
    Json json = reportJson(report, refusal.empty());
    doubts.addTo(json);
    if (options.verbose) json["load"] = load.json(document);
    writeMessage(documentText(json));
    return;
  }
  if (options.verbose) writeMessage("load report:\n" + load.text(document));
  writeMessage(reportText(report, refusal, options.verbose));
  doubts.report();
}

// Opens the tool path with its document and its table; what became of the table goes to the
// listeners.
void open(const PostOptions& options, ToolPathInput& input, LoadReport& load,
          host::TableOrigins& origins) {
  requireOther(options, input.documentFile());
  {
    const host::ListenerScope scope(load);
    const host::ListenerScope inner(origins);
    input.open();
  }
  requireOther(options, input.table().path);
}

// Writes the text to `output`, and its map if there is one.
host::Summary write(const PostOptions& options, ToolPathInput& input, PostMap* map,
                    PostOutput& output) {
  host::LineSink& sink = map != nullptr ? *map : output.lines();
  host::Generator generator(input.document(), input.name(), sink, map);
  const bool shown = options.format == OutputFormat::ForPeople && isatty(STDERR_FILENO) == 1;
  Progress progress(input.events(), shown);
  generator.run(progress);
  return generator.summary();
}

// Null when none is asked for.
std::unique_ptr<PostMap> mapOf(const PostOptions& options, const ToolPathInput& input,
                               host::TableOrigins& origins, PostOutput& output) {
  if (options.map.empty()) return nullptr;
  if (!input.table().path.empty()) origins.read(input.table().path);
  return std::make_unique<PostMap>(options, input, origins, output.lines());
}

// What is said of a listing that was written.
void reportListing(const PostOptions& options, const std::string& name,
                   const std::vector<host::MachineWord>& words, bool isRefused,
                   const Doubts& doubts) {
  if (options.format == OutputFormat::ForPrograms) {
    const Json output = options.output.empty() ? Json(nullptr) : textJson(options.output);
    Json json{{"file", textJson(name)},
              {"output", output},
              {"written", !isRefused},
              {"machineCoordinates", machineWordsJson(words)}};
    doubts.addTo(json);
    writeMessage(documentText(json));
    return;
  }
  doubts.report();
  for (const host::MachineWord& word : words) {
    host::Diagnostic finding;
    finding.severity = isRefused ? host::Severity::Error : host::Severity::Warning;
    finding.file = word.file;
    finding.line = word.line;
    finding.key = kMachineCoordinates;
    finding.message =
        word.name + " moves in machine coordinates, which are unknown without --machine";
    reportDiagnostic(finding);
  }
}

ExitStatus generate(const PostOptions& options) {
  ToolPathInput input(options);
  LoadReport load;
  host::TableOrigins origins;
  open(options, input, load, origins);
  const Strictness strictness(options.strictness);
  PostOutput output(options.output, strictness.isStrict());
  const auto map = mapOf(options, input, origins, output);
  const host::Summary summary = write(options, input, map.get(), output);
  const PostReport report{summary,
                          input.listing(),
                          load.missing(),
                          input.table(),
                          input.isProgram() ? &input.machineWords() : nullptr,
                          options.output};
  const std::string refusal = refusalOf(report, strictness);
  Doubts doubts;
  if (refusal.empty()) {
    output.finish();
    doubts.add(output.file());
    if (map) map->finish();
    if (map) doubts.add(map->file());
  }
  reportRun(options, report, refusal, doubts, load, *input.document());
  return refusal.empty() ? doubts.status() : ExitStatus::Refused;
}

// --listing takes what an NC program is run with, and nothing that is about the text.
void requireListable(const PostOptions& options) {
  const bool isAboutText = !options.table.empty() || !options.document.empty() ||
                           !options.map.empty() || options.verbose;
  if (isAboutText) throw UsageError{"--listing takes no -t, -d, --map or -v: it writes no text"};
}

void copyLines(host::LineReader& from, host::LineSink& to) {
  for (std::string_view line; from.next(line);) to.write(line);
}

ExitStatus writeListing(const PostOptions& options) {
  requireListable(options);
  const Strictness strictness(options.strictness);
  ToolPathInput input(options);
  const host::ProgramListing listing = input.list();
  const auto& words = input.machineWords();
  const bool isRefused = !words.empty() && strictness.refuses(kMachineCoordinates);
  Doubts doubts;
  if (!isRefused) {
    PostOutput output(options.output, false);
    copyLines(*listing.lines, output.lines());
    output.finish();
    doubts.add(output.file());
  }
  reportListing(options, input.name(), words, isRefused, doubts);
  return isRefused ? ExitStatus::Refused : doubts.status();
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
    requireOther(options, options.job == "-" ? "/dev/stdin" : options.job);
    for (const std::string& file : {options.table, options.tools, options.machine}) {
      requireOther(options, file);
    }
    requireMappable(options);
    return options.listing ? writeListing(options) : generate(options);
  } catch (const Refusal& refusal) {
    return refuse(options, refusal.diagnostic);
  } catch (const host::InputError& error) {
    return refuse(options, host::inputDiagnostic(error));
  } catch (const host::DocumentError& error) {
    return refuse(options, documentDiagnostic(error));
  }
}
