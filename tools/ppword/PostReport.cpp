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
#include "tools/ppword/Losses.h"
#include "tools/ppword/VerifyReport.h"

namespace {

using host::CallFate;
using host::Tally;

std::string number(long count, std::string_view singular) {
  return std::to_string(count) + ' ' + std::string(singular) + (count == 1 ? "" : "s");
}

constexpr std::size_t kMostLines = 10;

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
    Count shown = first;
    shown.place = place;
    std::string text = opening + countText(shown, hasPlace);
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

// What was found of each kind: in all, and the first.
Json lossesJson(const PostReport& report) {
  Json array = Json::array();
  for (const Counts& finding : findingsOf(report)) {
    if (finding.total() == 0) continue;
    Json json{{"key", finding.key}, {"count", finding.total()}, {"missing", finding.isMissing}};
    if (!finding.all.empty()) {
      const Count& first = finding.all.front();
      json["first"] = {{"name", textJson(first.name)}, {"line", first.line}};
      if (!first.file.empty()) json["first"]["file"] = textJson(first.file);
    }
    array.push_back(std::move(json));
  }
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

// Why a text is refused that is not what the input says.
constexpr std::string_view kDiffers =
    "the text, read back, is not what the input says; --no-verify writes it unread";

bool differs(const PostReport& report) {
  return report.comparison != nullptr && report.comparison->difference();
}

// What is said of the end of an NC program that has none.
constexpr std::string_view kAddedEnd =
    "  NOTE: the program has no M2 or M30; it was run with M2 as its last line";

std::string verifiedText(const verify::Comparison* comparison) {
  if (comparison == nullptr) return "  not verified\n";
  return "  verified: " + number(comparison->verified(), "statement") + ", " +
         std::to_string(comparison->ownOfTable()) + " of them the table's own" +
         (comparison->difference() ? "; the next one differs\n" : "\n");
}

Json verifiedJson(const verify::Comparison* comparison) {
  if (comparison == nullptr) return nullptr;
  return {{"agrees", !comparison->difference()},
          {"elements", comparison->elements()},
          {"statements", comparison->verified()},
          {"ownOfTable", comparison->ownOfTable()},
          {"notVerified", sightingsJson(comparison->notVerified())},
          {"otherPoints", sightingsJson(comparison->otherPoints())},
          {"leftOut", sightingsJson(comparison->leftOut())}};
}

std::string outcomeText(const PostReport& report, std::string_view refusal) {
  const std::string output = report.output.empty() ? "standard output" : report.output;
  if (refusal.empty()) return host::terminalSafe(output) + ": written\n";
  return ((host::terminalSafe(output) + ": not written: ") += refusal) += '\n';
}

}  // namespace

long missingPieces(const PostReport& report) {
  long count = 0;
  for (const Counts& finding : findingsOf(report)) count += finding.isMissing ? finding.total() : 0;
  return count;
}

std::string refusalOf(const PostReport& report, const Strictness& strictness) {
  long count = 0;
  bool isMissing = true;
  for (const Counts& finding : findingsOf(report)) {
    const long found = finding.total();
    if (found == 0 || !strictness.refuses(finding.key, finding.isNote())) continue;
    count += found;
    isMissing = isMissing && finding.isMissing;
  }
  if (count == 0) return differs(report) ? std::string(kDiffers) : std::string();
  return isMissing ? number(count, "piece") + " of the text would be missing"
                   : number(count, "finding") + (count == 1 ? " is" : " are") + " refused";
}

std::string reportText(const PostReport& report, std::string_view refusal, bool verbose) {
  const host::Summary& summary = report.summary;
  std::string text = host::terminalSafe(summary.file) + ": " + number(summary.elements, "element") +
                     ", " + number(summary.lines, "line") + '\n';
  text += tableText(report.table);
  const auto linesSoFar = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  std::vector<Counts> findings = findingsOf(report);
  findings.push_back(movesOf(report));
  std::erase_if(findings,
                [](const Counts& counts) { return counts.opening.empty() || counts.all.empty(); });
  std::vector<std::string> lines;
  // With `verbose` they have a table each.
  if (!verbose) std::ranges::transform(findings, std::back_inserter(lines), countsLine);
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
  if (!verbose) limit(lines, kMostLines - std::min(linesSoFar + 2, kMostLines - 2));
  for (const std::string& line : lines) text += line + '\n';
  if (verbose) {
    for (const auto& all : {detailsOf(report), findings}) {
      for (const Counts& counts : all) text += counts.all.empty() ? "" : countsTable(counts);
    }
  }
  return text + verifiedText(report.comparison) + outcomeText(report, refusal);
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
            {"losses", lossesJson(report)},
            {"instructions", tallyJson(summary.instructions, true)},
            {"unevaluated", tallyJson(summary.unevaluated, false)},
            {"withoutNumber", tallyJson(summary.withoutNumber, false)},
            {"cutOff", tallyJson(summary.dropped, false)},
            {"deleted", tallyJson(summary.deleted, false)},
            {"neverGiven", tallyJson(summary.neverGiven, false)},
            {"impossible", tallyJson(summary.impossible, false)},
            {"misspelt", tallyJson(summary.misspelt, false)},
            {"wide", tallyJson(summary.wide, false)},
            {"tableEntriesNotLoaded", report.missingEntries},
            {"verified", verifiedJson(report.comparison)}};
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
