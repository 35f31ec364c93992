#include "tools/ppword/PostRun.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "host/system/FileBeside.h"
#include "host/system/ListenerScope.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "inspect/diagnostics/TableFile.h"
#include "post/consumer/ConsumerProfile.h"
#include "post/generator/Generator.h"
#include "post/output/SameFile.h"
#include "tools/ppword/Kinds.h"
#include "tools/ppword/LoadReport.h"
#include "tools/ppword/PostMap.h"
#include "tools/ppword/PostReport.h"
#include "tools/ppword/Progress.h"
#include "tools/ppword/ReadBack.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/ToolPathInput.h"

namespace {

// Null without one.
std::unique_ptr<host::ConsumerProfile> profileOf(const PostOptions& options) {
  if (options.profile.empty()) return nullptr;
  return std::make_unique<host::ConsumerProfile>(host::readProfile(options.profile));
}

// Null without a profile.
std::unique_ptr<host::ConsumerLines> consumerOf(const host::ConsumerProfile* profile,
                                                const ToolPathInput& input, host::LineSink& text) {
  if (profile == nullptr) return nullptr;
  return std::make_unique<host::ConsumerLines>(profile->consumer, input.textWords(), text);
}

// Null for a text that is not read back.
std::unique_ptr<ReadBack> readBackOf(const PostOptions& options, ToolPathInput& input,
                                     const host::ConsumerProfile* profile, PostOutput& output) {
  if (!options.verifies || !output.file().isBeside()) return nullptr;
  return std::make_unique<ReadBack>(input, output.file(), profile);
}

// Writes the text to `sink`, and its map if there is one.
host::Summary write(ToolPathInput& input, PostMap* map, host::LineSink& sink, ReadBack* readBack,
                    bool showsProgress) {
  host::Generator generator(input.document(), input.name(), sink, map);
  CountedEvents events(input, showsProgress);
  if (readBack != nullptr) {
    readBack->run(generator, events);
  } else {
    generator.run(events);
  }
  return generator.summary();
}

// Null when none is asked for.
std::unique_ptr<PostMap> mapOf(const PostOptions& options, const ToolPathInput& input,
                               host::TableOrigins& origins, PostOutput& output) {
  if (options.map.empty()) return nullptr;
  if (!input.table().path.empty()) origins.read(input.table().path);
  return std::make_unique<PostMap>(options, input, origins, output.lines());
}

// Adds what a job itself refuses.
void require(const host::JobHeader& header, Strictness& strictness) {
  if (header.isStrict) strictness.require();
  for (const auto& [key, column] : header.strictKeys) {
    try {
      strictness.require(key);
    } catch (const UsageError& unknown) {
      throw host::InputError(header.file, header.line, column, "$.strict: " + unknown.message);
    }
  }
}

// What the options refuse, and the job itself.
Strictness strictnessOf(const PostOptions& options, const host::JobHeader* header) {
  Strictness strictness(options.strictness);
  if (header != nullptr) require(*header, strictness);
  return strictness;
}

// The instructions whose lines are built in although the table has instructions. A document has
// lines of its own.
std::set<std::string> builtIn(const host::Summary& summary, const ToolPathInput& input,
                              const LoadReport& load) {
  std::set<std::string> names;
  if (!load.hasInstructions() || !input.documentFile().empty()) return names;
  for (const host::Tally::Entry& entry : summary.instructions.entries()) {
    if (!load.hasLines(entry.name)) names.insert(entry.name);
  }
  return names;
}

// The instruction of a job whose comments are statements. A listing knows its own.
std::set<std::string> bareComments(const host::Summary& summary, const ToolPathInput& input) {
  const std::string name = "NC_OUTPUT_COMMENT";
  const auto& used = summary.instructions.entries();
  const bool isUsed = std::ranges::find(used, name, &host::Tally::Entry::name) != used.end();
  const bool isBare = isUsed && input.listing() == nullptr &&
                      host::writesBareTexts(*input.document(), input.textWords());
  return isBare ? std::set{name} : std::set<std::string>();
}

// What is said of the run: for people and for programs.
void report(const PostOptions& options, const PostReport& report, std::string_view refusal,
            const LoadReport& load, const host::Document& document, PostOutcome& outcome) {
  if (options.format == OutputFormat::ForPeople) {
    if (options.verbose) outcome.text = "load report:\n" + load.text(document);
    outcome.text += reportText(report, refusal, options.verbose);
    return;
  }
  outcome.report = reportJson(report, refusal.empty());
  if (options.verbose) outcome.report["load"] = load.json(document);
}

// Adds both places of a difference.
void addPlaces(const std::vector<host::Diagnostic>& places, PostOutcome& outcome) {
  std::string text;
  for (const host::Diagnostic& place : places) {
    text += host::diagnosticText(place, showsColours());
    outcome.report["diagnostics"].push_back(diagnosticJson(place));
  }
  outcome.text.insert(0, text);
}

PostOutcome generate(const PostOptions& options, LoadedTables* tables, const Placing& place) {
  ToolPathInput input(options, tables);
  LoadReport load;
  host::TableOrigins origins;
  openToolPath(options, input, load, origins);
  const Strictness strictness = strictnessOf(options, input.header());
  auto output = std::make_unique<PostOutput>(options.output, strictness.isStrict(),
                                             protectionOf(options.force));
  const auto map = mapOf(options, input, origins, *output);
  const auto profile = profileOf(options);
  const auto readBack = readBackOf(options, input, profile.get(), *output);
  const bool isAlone = tables == nullptr;
  host::LineSink& text = map ? *map : output->lines();
  const auto consumer = consumerOf(profile.get(), input, text);
  const host::Summary summary = write(input, map.get(), consumer ? *consumer : text, readBack.get(),
                                      isAlone && showsProgress(options.format));
  PostReport made = reportOf(options, input, load, summary);
  made.comparison = readBack ? &readBack->comparison() : nullptr;
  made.consumer = consumer.get();
  const std::string refusal = refusalOf(made, strictness);
  PostOutcome outcome;
  outcome.elements = summary.elements;
  outcome.lines = summary.lines;
  report(options, made, refusal, load, *input.document(), outcome);
  if (readBack) addPlaces(readBack->places(), outcome);
  if (refusal.empty()) {
    place(std::move(output), map.get(), outcome);
  } else {
    outcome.status = ExitStatus::Refused;
  }
  return outcome;
}

PostOutcome refusalOutcome(const std::string& file, const host::Diagnostic& diagnostic) {
  PostOutcome outcome;
  outcome.status = ExitStatus::Refused;
  outcome.text = host::diagnosticText(diagnostic, showsColours());
  outcome.report = {{"file", textJson(file)},
                    {"written", false},
                    {"diagnostics", Json::array({diagnosticJson(diagnostic)})}};
  return outcome;
}

}  // namespace

void requireOther(const PostOptions& options, const std::string& input) {
  for (const auto& [what, file] : {std::pair("output", options.output), {"map", options.map}}) {
    if (!host::isSameFile(file, input)) continue;
    throw UsageError{"the " + std::string(what) + " would replace the input " + file};
  }
}

void openToolPath(const PostOptions& options, ToolPathInput& input, LoadReport& load,
                  host::TableOrigins& origins) {
  requireOther(options, input.documentFile());
  {
    const host::ListenerScope scope(load);
    const host::ListenerScope inner(origins);
    input.open();
  }
  requireOther(options, input.table().path);
}

PostReport reportOf(const PostOptions& options, const ToolPathInput& input, const LoadReport& load,
                    const host::Summary& summary) {
  return {summary,
          input.listing(),
          load.missing(),
          input.table(),
          input.isProgram() ? &input.machineWords() : nullptr,
          nullptr,
          options.output,
          nullptr,
          builtIn(summary, input, load),
          bareComments(summary, input)};
}

void requireOthers(const PostOptions& options) {
  requireOther(options, options.job == "-" ? "/dev/stdin" : options.job);
  for (const std::string& file : {options.table, options.tools, options.machine, options.profile}) {
    requireOther(options, file);
  }
}

void PostOutcome::addDoubt(const host::OutputFile& file) {
  if (file.doubt().empty()) return;
  status = ExitStatus::Unconfirmed;
  const std::string said = (file.name() + ' ') += host::doubtText(file.doubt());
  text += "ppword: error: " + host::terminalSafe(said) + '\n';
  report["notCertain"].push_back({{"file", textJson(file.name())}, {"reason", file.doubt()}});
}

PostOutcome outcomeOf(const std::string& job, const std::function<PostOutcome()>& run) {
  try {
    return run();
  } catch (const Refusal& refusal) {
    return refusalOutcome(job, refusal.diagnostic);
  } catch (const host::InputError& error) {
    return refusalOutcome(job, host::inputDiagnostic(error));
  } catch (const host::UnreadableTable& unreadable) {
    return refusalOutcome(job, unreadable.diagnostic);
  } catch (const host::DocumentError& error) {
    return refusalOutcome(job, documentDiagnostic(error));
  }
}

PostOutcome postToolPath(const PostOptions& options, LoadedTables* tables, const Placing& place) {
  return outcomeOf(options.job, [&] { return generate(options, tables, place); });
}
