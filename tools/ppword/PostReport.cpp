#include "tools/ppword/PostReport.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "language/syntax/Characters.h"
#include "post/listing/ListingReader.h"
#include "post/text/FoldedLines.h"

namespace {

using host::CallFate;
using host::Tally;

std::string number(long count, std::string_view singular) {
  return std::to_string(count) + ' ' + std::string(singular) + (count == 1 ? "" : "s");
}

constexpr std::size_t kMostLines = 8;

// What was counted under one name, and where it was first.
struct Count {
  std::string name;
  long count;
  std::string place;
};

std::string placeText(long line, const std::string& file) {
  return "in line " + std::to_string(line) +
         (file.empty() ? "" : " of " + host::terminalSafe(file));
}

// Counts of one kind.
struct Counts {
  std::string_view opening;
  std::vector<Count> all;
  // Names beyond those that are counted each.
  long others = 0;
  // Whether a line of them says where each was first.
  bool hasPlaces = true;
};

Counts countsOf(std::string_view opening, const Tally& tally) {
  Counts counts{opening, {}, tally.others()};
  for (const Tally::Entry& entry : tally.entries()) {
    std::string place = placeText(entry.firstLine, entry.firstFile);
    const bool isNamed = entry.firstInstruction.empty() || entry.firstInstruction == entry.name;
    if (!isNamed) place += ", " + host::terminalSafe(entry.firstInstruction);
    counts.all.push_back({host::terminalSafe(entry.name), entry.count, std::move(place)});
  }
  return counts;
}

Counts countsOf(std::string_view opening, const PostReport& report, CallFate fate) {
  Counts counts{opening, {}, 0, fate != CallFate::Move};
  if (report.listing == nullptr) return counts;
  for (const host::CallCount& call : report.listing->calls().all()) {
    if (call.fate != fate) continue;
    counts.all.push_back(
        {host::terminalSafe(call.name), call.count, placeText(call.firstLine, call.firstFile)});
  }
  return counts;
}

Counts machineCounts(const PostReport& report) {
  Counts counts{"WARNING: machine positions unknown", {}};
  if (report.machineWords == nullptr) return counts;
  for (const host::MachineWord& word : *report.machineWords) {
    const std::string file = word.file == report.summary.file ? "" : word.file;
    counts.all.push_back({word.name, word.count, placeText(word.line, file)});
  }
  return counts;
}

// What a reader has to know.
std::vector<Counts> findingsOf(const PostReport& report) {
  const host::Summary& summary = report.summary;
  return {countsOf("WARNING: moves missing from the output", report, CallFate::UnsupportedMove),
          countsOf("WARNING: unknown calls, missing from the output", report, CallFate::Unknown),
          countsOf("WARNING: calls only partly written", report, CallFate::Dropped),
          machineCounts(report),
          countsOf("WARNING: not evaluated", summary.unevaluated),
          countsOf("WARNING: printed without a number", summary.withoutNumber),
          countsOf("WARNING: names cut off", summary.dropped),
          countsOf("WARNING: operations deleted", summary.deleted),
          countsOf("WARNING: printed, but never stated", summary.neverGiven),
          countsOf("WARNING: values that no machine can mean", summary.impossible),
          countsOf("WARNING: unknown name", summary.misspelt),
          countsOf("NOTE: arcs written as chords", report, CallFate::Chords),
          countsOf("NOTE: lines wider than 72 columns", summary.wide),
          countsOf("moves", report, CallFate::Move)};
}

// The rest of what was counted.
std::vector<Counts> detailsOf(const PostReport& report) {
  Counts instructions = countsOf("instructions", report.summary.instructions);
  for (Count& count : instructions.all) {
    count.place.erase(std::min(count.place.find(','), count.place.size()));
  }
  return {std::move(instructions), countsOf("calls written as lines", report, CallFate::Written),
          countsOf("calls that need no output", report, CallFate::Other)};
}

// A line of at most so many columns.
std::string shortened(std::string text, std::size_t most) {
  while (host::columnsOf(text) > most - 3) text.pop_back();
  while (!ppword::startsCharacter(text.back())) text.pop_back();
  if (static_cast<unsigned char>(text.back()) >= 0xC0U) text.pop_back();
  return text + "...";
}

// "STRAIGHT_FEED 418"; with places "MFG_A (in line 7)" or "MFG_A (2 times, first in line 7)".
std::string countText(const Count& count, bool hasPlace) {
  if (!hasPlace) return count.name + ' ' + std::to_string(count.count);
  const std::string times = count.count == 1 ? "" : std::to_string(count.count) + " times";
  const std::string place = times.empty() ? count.place : ", first " + count.place;
  const std::string text = times + (count.place.empty() ? "" : place);
  return count.name + (text.empty() ? "" : " (" + text + ')');
}

// How many more there are after those shown.
std::string moreText(std::size_t left) {
  return left == 0 ? "" : ", and " + std::to_string(left) + " more";
}

// The first one with how many more there are: as much of it as fits, its place left out first.
std::string firstText(const std::string& opening, const Count& first, bool hasPlace,
                      const std::string& more) {
  const std::string line = std::string(first.place).substr(0, first.place.find(','));
  for (const std::string& place : {first.place, line, std::string()}) {
    std::string text(opening);
    text += countText({first.name, first.count, place}, hasPlace);
    if (host::columnsOf(text) + host::columnsOf(more) <= host::kScreenColumns) return text;
  }
  return shortened(opening + first.name, host::kScreenColumns - host::columnsOf(more));
}

// As many as fit.
std::string countsLine(const Counts& counts) {
  std::size_t left = counts.all.size() - 1;
  const std::string opening = (std::string("  ") += counts.opening) + ": ";
  std::string line = firstText(opening, counts.all.front(), counts.hasPlaces, moreText(left));
  for (; left > 0; --left) {
    const Count& count = counts.all[counts.all.size() - left];
    const std::string next = line + ", " + countText(count, counts.hasPlaces);
    if (host::columnsOf(next + moreText(left - 1)) > host::kScreenColumns) break;
    line = next;
  }
  return line + moreText(left);
}

// One name a line, in columns.
std::string countsTable(const Counts& counts) {
  std::size_t width = 0;
  std::size_t digits = 0;
  for (const Count& count : counts.all) {
    width = std::max(width, host::columnsOf(count.name));
    digits = std::max(digits, std::to_string(count.count).size());
  }
  std::string text = (std::string("  ") += counts.opening) + ":\n";
  for (const Count& count : counts.all) {
    const std::string number = std::to_string(count.count);
    text += "    " + count.name + std::string(width - host::columnsOf(count.name) + 2, ' ') +
            std::string(digits - number.size(), ' ') + number + "  first " + count.place + '\n';
  }
  if (counts.others > 0) text += "    others  " + std::to_string(counts.others) + '\n';
  return text;
}

// Leaves lines out that are too many: first those that warn of nothing.
void limit(std::vector<std::string>& lines, std::size_t most) {
  const auto warns = [](const std::string& line) { return line.starts_with("  WARNING"); };
  while (lines.size() > most) {
    const auto other = std::find_if_not(lines.rbegin(), lines.rend(), warns);
    if (other == lines.rend()) break;
    lines.erase(std::next(other).base());
  }
  if (lines.size() <= most) return;
  const std::size_t left = lines.size() - (most - 1);
  lines.resize(most - 1);
  lines.push_back("  WARNING: " + std::to_string(left) + " more kinds; -v shows them");
}

Json tallyJson(const Tally& tally, bool instructions) {
  Json array = Json::array();
  for (const Tally::Entry& entry : tally.entries()) {
    Json json{
        {"name", textJson(entry.name)}, {"count", entry.count}, {"firstLine", entry.firstLine}};
    if (!instructions) json["firstInstruction"] = textJson(entry.firstInstruction);
    if (!entry.firstFile.empty()) json["firstFile"] = textJson(entry.firstFile);
    array.push_back(std::move(json));
  }
  if (tally.others() > 0) array.push_back({{"name", nullptr}, {"count", tally.others()}});
  return array;
}

std::string_view fateName(CallFate fate) {
  constexpr std::array<std::string_view, 7> kNames = {"move", "chords",   "line",   "other",
                                                      "lost", "lostMove", "unknown"};
  return kNames[static_cast<std::size_t>(fate)];
}

Json callsJson(const host::CallCounts& calls) {
  Json array = Json::array();
  for (const host::CallCount& call : calls.all()) {
    Json json{{"name", textJson(call.name)},
              {"fate", fateName(call.fate)},
              {"count", call.count},
              {"firstLine", call.firstLine}};
    if (!call.firstFile.empty()) json["firstFile"] = textJson(call.firstFile);
    array.push_back(std::move(json));
  }
  return array;
}

// What the text lacks.
struct Loss {
  std::string_view key;
  long count;
  // Of a note a run refuses nothing unless it is named.
  bool isNote = false;
  // False for what is in the text, but should not be.
  bool isMissing = true;
};

std::vector<Loss> lossesOf(const PostReport& report) {
  const host::Summary& summary = report.summary;
  const auto calls = [&](CallFate fate) {
    return report.listing == nullptr ? 0 : report.listing->calls().total(fate);
  };
  long machineWords = 0;
  for (const Count& count : machineCounts(report).all) machineWords += count.count;
  return {{kUnevaluated, summary.unevaluated.total()},
          {kWithoutNumber, summary.withoutNumber.total()},
          {kCutOff, summary.dropped.total()},
          {kDeleted, summary.deleted.total()},
          {kNeverGiven, summary.neverGiven.total(), false, false},
          {kImpossible, summary.impossible.total(), false, false},
          {kMisspelt, summary.misspelt.total(), false, false},
          {kBareComment, report.listing == nullptr ? 0 : host::bareTexts(*report.listing), false,
           false},
          {kLostCall, calls(CallFate::Dropped)},
          {kLostMove, calls(CallFate::UnsupportedMove)},
          {kUnknownCall, calls(CallFate::Unknown)},
          {kMachineCoordinates, machineWords, false, false},
          {kTableEntry, report.missingEntries},
          {kWideLine, summary.wide.total(), true, false}};
}

// What is said of the end of an NC program that has none.
constexpr std::string_view kAddedEnd =
    "  NOTE: the program has no M2 or M30; it was run with M2 as its last line";

std::string outcomeText(const PostReport& report, std::string_view refusal) {
  const std::string output = report.output.empty() ? "standard output" : report.output;
  if (refusal.empty()) return host::terminalSafe(output) + ": written\n";
  return ((host::terminalSafe(output) + ": not written: ") += refusal) += '\n';
}

}  // namespace

long missingPieces(const PostReport& report) {
  long count = 0;
  for (const Loss& loss : lossesOf(report)) count += loss.isMissing ? loss.count : 0;
  return count;
}

std::string refusalOf(const PostReport& report, const Strictness& strictness) {
  long count = 0;
  bool isMissing = true;
  for (const Loss& loss : lossesOf(report)) {
    if (loss.count == 0 || !strictness.refuses(loss.key, loss.isNote)) continue;
    count += loss.count;
    isMissing = isMissing && loss.isMissing;
  }
  if (count == 0) return {};
  return isMissing ? number(count, "piece") + " of the text would be missing"
                   : number(count, "finding") + (count == 1 ? " is" : " are") + " refused";
}

std::string reportText(const PostReport& report, std::string_view refusal, bool verbose) {
  const host::Summary& summary = report.summary;
  std::string text = host::terminalSafe(summary.file) + ": " + number(summary.elements, "element") +
                     ", " + number(summary.lines, "line") + '\n';
  text += tableText(report.table);
  const auto linesSoFar = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  std::vector<std::string> lines;
  for (const Counts& counts : findingsOf(report)) {
    // With `verbose` they have a table each.
    if (!verbose && !counts.all.empty()) lines.push_back(countsLine(counts));
  }
  if (report.missingEntries > 0) {
    lines.push_back("  WARNING: " + std::to_string(report.missingEntries) +
                    " entries of the table were not loaded; -v shows which");
  }
  if (report.listing != nullptr) {
    for (const std::string& line : host::summaryLines(*report.listing)) {
      lines.push_back("  " + host::terminalSafe(line));
    }
  }
  if (report.listing != nullptr && report.listing->endWasAdded()) lines.emplace_back(kAddedEnd);
  if (!verbose) limit(lines, kMostLines - std::min(linesSoFar + 1, kMostLines - 2));
  for (const std::string& line : lines) text += line + '\n';
  if (verbose) {
    for (const auto& all : {detailsOf(report), findingsOf(report)}) {
      for (const Counts& counts : all) text += counts.all.empty() ? "" : countsTable(counts);
    }
  }
  return text + outcomeText(report, refusal);
}

Json reportJson(const PostReport& report, bool written) {
  const host::Summary& summary = report.summary;
  Json json{{"file", textJson(summary.file)},
            {"output", report.output.empty() ? Json(nullptr) : textJson(report.output)},
            {"written", written},
            {"elements", summary.elements},
            {"lines", summary.lines},
            {"table", tableJson(report.table)},
            {"missing", missingPieces(report)},
            {"instructions", tallyJson(summary.instructions, true)},
            {"unevaluated", tallyJson(summary.unevaluated, false)},
            {"withoutNumber", tallyJson(summary.withoutNumber, false)},
            {"cutOff", tallyJson(summary.dropped, false)},
            {"deleted", tallyJson(summary.deleted, false)},
            {"neverGiven", tallyJson(summary.neverGiven, false)},
            {"impossible", tallyJson(summary.impossible, false)},
            {"misspelt", tallyJson(summary.misspelt, false)},
            {"wide", tallyJson(summary.wide, false)},
            {"tableEntriesNotLoaded", report.missingEntries}};
  if (report.listing == nullptr) return json;
  if (const auto unit = report.listing->unit()) {
    json["unit"] = host::pluralOf(*unit);
    json["feedUnit"] = host::pluralOf(report.listing->vocabulary().feedPerMinute.value_or(*unit));
  }
  json["calls"] = callsJson(report.listing->calls());
  if (report.machineWords == nullptr) return json;
  json["machineCoordinates"] = machineWordsJson(*report.machineWords);
  json["endAdded"] = report.listing->endWasAdded();
  return json;
}

Json machineWordsJson(const std::vector<host::MachineWord>& words) {
  Json array = Json::array();
  for (const host::MachineWord& word : words) {
    array.push_back({{"name", word.name},
                     {"count", word.count},
                     {"file", textJson(word.file)},
                     {"firstLine", word.line}});
  }
  return array;
}
