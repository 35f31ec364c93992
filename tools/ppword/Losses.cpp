#include "tools/ppword/Losses.h"

#include <algorithm>
#include <utility>

#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Kinds.h"
#include "verify/Comparison.h"

namespace {

using host::CallFate;
using host::Tally;

std::string placeText(long line, const std::string& file) {
  return "in line " + std::to_string(line) +
         (file.empty() ? "" : " of " + host::terminalSafe(file));
}

void add(const Tally::Entry& entry, Counts& counts) {
  std::string place = placeText(entry.firstLine, entry.firstFile);
  const bool isNamed = entry.firstInstruction.empty() || entry.firstInstruction == entry.name;
  if (!isNamed) place += ", " + host::terminalSafe(entry.firstInstruction);
  counts.all.push_back({host::terminalSafe(entry.name), entry.count, std::move(place),
                        entry.firstLine, entry.firstFile});
}

Counts countsOf(std::string_view opening, std::string_view key, const Tally& tally) {
  Counts counts{opening, key, {}, tally.others()};
  for (const Tally::Entry& entry : tally.entries()) add(entry, counts);
  return counts;
}

void add(const host::CallCount& call, Counts& counts) {
  counts.all.push_back({host::terminalSafe(call.name), call.count,
                        placeText(call.firstLine, call.firstFile), call.firstLine, call.firstFile});
}

Counts callsOf(std::string_view opening, std::string_view key, const PostReport& report,
               CallFate fate) {
  Counts counts{opening, key, {}};
  if (report.listing == nullptr) return counts;
  for (const host::CallCount& call : report.listing->calls().all()) {
    if (call.fate == fate) add(call, counts);
  }
  return counts;
}

Counts machineWords(const PostReport& report) {
  Counts counts{"WARNING: machine positions unknown", kMachineCoordinates, {}};
  if (report.machineWords == nullptr) return counts;
  for (const host::MachineWord& word : *report.machineWords) {
    const std::string file = word.file == report.summary.file ? "" : word.file;
    counts.all.push_back({word.name, word.count, placeText(word.line, file), word.line, file});
  }
  return counts;
}

Counts instructionsOf(std::string_view opening, std::string_view key, const PostReport& report,
                      const std::set<std::string>& names) {
  Counts counts{opening, key, {}};
  for (const Tally::Entry& entry : report.summary.instructions.entries()) {
    if (names.contains(entry.name)) add(entry, counts);
  }
  return counts;
}

// Those of a listing are in a line of its own.
Counts bareComments(const PostReport& report) {
  if (report.listing != nullptr) {
    Counts counts{"", kBareComment, {}};
    for (const host::CallCount& call : host::bareTexts(*report.listing)) add(call, counts);
    return counts;
  }
  return instructionsOf("WARNING: comments written as statements", kBareComment, report,
                        report.bare);
}

Counts replacedCharacters(const PostReport& report) {
  Counts counts{"WARNING: characters replaced", kReplaced, {}};
  if (report.consumer == nullptr) return counts;
  for (const auto& [character, count, line] : report.consumer->replaced()) {
    counts.all.push_back(
        {host::terminalSafe(character), count, placeText(line, "the text"), line, ""});
  }
  return counts;
}

using SightingsOf = const verify::Comparison::Sightings& (verify::Comparison::*)() const;

// What the text that was read back showed.
Counts readBack(std::string_view opening, std::string_view key, const PostReport& report,
                SightingsOf sightings) {
  Counts counts{opening, key, {}};
  if (report.comparison == nullptr) return counts;
  for (const auto& [name, seen] : (report.comparison->*sightings)()) {
    const verify::InputPlace& first = seen.first;
    counts.all.push_back({host::terminalSafe(name), seen.count, placeText(first.line, first.file),
                          first.line, first.file});
  }
  return counts;
}

// A consumer's lines are never wider than it takes.
Counts wideLines(const PostReport& report) {
  constexpr std::string_view kOpening = "NOTE: lines wider than 72 columns";
  if (report.consumer != nullptr) return {kOpening, kWideLine, {}};
  return countsOf(kOpening, kWideLine, report.summary.wide);
}

// A text that was not read back counts as one, and is refused only where it is named.
Counts notVerified(const PostReport& report) {
  if (report.comparison == nullptr) return {"NOTE: not verified", kNotVerified, {}, 1};
  return readBack("WARNING: not verified", kNotVerified, report, &verify::Comparison::notVerified);
}

Counts missing(Counts counts) {
  counts.isMissing = true;
  return counts;
}

}  // namespace

long Counts::total() const {
  long total = others;
  for (const Count& count : all) total += count.count;
  return total;
}

std::vector<Counts> findingsOf(const PostReport& report) {
  const host::Summary& summary = report.summary;
  return {
      missing(callsOf("WARNING: moves missing from the output", kLostMove, report,
                      CallFate::UnsupportedMove)),
      missing(callsOf("WARNING: unknown calls, missing from the output", kUnknownCall, report,
                      CallFate::Unknown)),
      missing(callsOf("WARNING: calls only partly written", kLostCall, report, CallFate::Dropped)),
      machineWords(report),
      missing(countsOf("WARNING: not evaluated", kUnevaluated, summary.unevaluated)),
      missing(countsOf("WARNING: printed without a number", kWithoutNumber, summary.withoutNumber)),
      missing(countsOf("WARNING: names cut off", kCutOff, summary.dropped)),
      missing(countsOf("WARNING: texts cut to 79 characters", kCutText, summary.cutTexts)),
      missing(countsOf("WARNING: operations deleted", kDeleted, summary.deleted)),
      countsOf("WARNING: printed, but never stated", kNeverGiven, summary.neverGiven),
      countsOf("WARNING: rounded to 0", kRoundedToZero, summary.roundedToZero),
      countsOf("WARNING: dimensions taken as 0", kMissingDimension, summary.missingDimensions),
      countsOf("WARNING: values that no machine can mean", kImpossible, summary.impossible),
      countsOf("WARNING: unknown name", kMisspelt, summary.misspelt),
      missing(replacedCharacters(report)),
      bareComments(report),
      missing({"", kTableEntry, {}, report.missingEntries}),
      notVerified(report),
      readBack("WARNING: another point than stated", kOtherPoint, report,
               &verify::Comparison::otherPoints),
      instructionsOf("NOTE: built-in lines, the table has none", kBuiltIn, report, report.builtIn),
      readBack("NOTE: left out by the table", kLeftOut, report, &verify::Comparison::leftOut),
      callsOf("NOTE: arcs written as chords", kChords, report, CallFate::Chords),
      wideLines(report)};
}

Counts movesOf(const PostReport& report) {
  Counts counts = callsOf("moves", "", report, CallFate::Move);
  counts.hasPlaces = false;
  return counts;
}

std::vector<Counts> detailsOf(const PostReport& report) {
  Counts instructions = countsOf("instructions", "", report.summary.instructions);
  for (Count& count : instructions.all) {
    count.place.erase(std::min(count.place.find(','), count.place.size()));
  }
  return {std::move(instructions), callsOf("calls written as lines", "", report, CallFate::Written),
          callsOf("calls that need no output", "", report, CallFate::Other)};
}
