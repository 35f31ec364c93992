#include "tools/ppword/PostReport.h"

#include <array>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "post/listing/ListingReader.h"

namespace {

using host::CallFate;
using host::Tally;

std::string number(long count, std::string_view singular) {
  return std::to_string(count) + ' ' + std::string(singular) + (count == 1 ? "" : "s");
}

// "NC_GOTO 12, NC_RAPID 3", each with its first place if asked for.
std::string tallyText(const Tally& tally, bool places) {
  std::string text;
  for (const Tally::Entry& entry : tally.entries()) {
    text += (text.empty() ? "" : ", ") + entry.name + ' ' + std::to_string(entry.count);
    if (!places) continue;
    text +=
        " (first in line " + std::to_string(entry.firstLine) + ", " + entry.firstInstruction + ')';
  }
  if (tally.others() > 0) text += ", others " + std::to_string(tally.others());
  return host::terminalSafe(text);
}

std::string tallyLine(std::string_view opening, const Tally& tally, bool places) {
  if (tally.total() == 0) return "";
  return "  " + std::string(opening) + ": " + tallyText(tally, places) + '\n';
}

Json tallyJson(const Tally& tally, bool instructions) {
  Json array = Json::array();
  for (const Tally::Entry& entry : tally.entries()) {
    Json json{
        {"name", textJson(entry.name)}, {"count", entry.count}, {"firstLine", entry.firstLine}};
    if (!instructions) json["firstInstruction"] = textJson(entry.firstInstruction);
    array.push_back(std::move(json));
  }
  if (tally.others() > 0) array.push_back({{"name", nullptr}, {"count", tally.others()}});
  return array;
}

std::string_view fateName(CallFate fate) {
  constexpr std::array<std::string_view, 6> kNames = {"move", "line",     "other",
                                                      "lost", "lostMove", "unknown"};
  return kNames[static_cast<std::size_t>(fate)];
}

Json callsJson(const host::CallCounts& calls) {
  Json array = Json::array();
  for (const host::CallCount& call : calls.all()) {
    array.push_back({{"name", textJson(call.name)},
                     {"fate", fateName(call.fate)},
                     {"count", call.count},
                     {"firstLine", call.firstLine}});
  }
  return array;
}

// What the text lacks.
struct Loss {
  std::string_view key;
  long count;
  bool isNote = false;
};

std::vector<Loss> lossesOf(const PostReport& report) {
  const host::Summary& summary = report.summary;
  const auto calls = [&](CallFate fate) {
    return report.listing == nullptr ? 0 : report.listing->calls().total(fate);
  };
  return {
      {kUnevaluated, summary.unevaluated.total()}, {kWithoutNumber, summary.withoutNumber.total()},
      {kCutOff, summary.dropped.total()},          {kDeleted, summary.deleted.total()},
      {kNeverGiven, summary.neverGiven.total()},   {kImpossible, summary.impossible.total()},
      {kLostCall, calls(CallFate::Dropped)},       {kLostMove, calls(CallFate::UnsupportedMove)},
      {kUnknownCall, calls(CallFate::Unknown)},    {kTableEntry, report.missingEntries},
      {kWideLine, summary.wide.total(), true}};
}

std::string outcomeText(const PostReport& report, std::string_view refusal) {
  const std::string output = report.output.empty() ? "standard output" : report.output;
  if (refusal.empty()) return host::terminalSafe(output) + ": written\n";
  return ((host::terminalSafe(output) + ": not written: ") += refusal) += '\n';
}

}  // namespace

long missingPieces(const PostReport& report) {
  long count = 0;
  for (const Loss& loss : lossesOf(report)) count += loss.isNote ? 0 : loss.count;
  return count;
}

std::string refusalOf(const PostReport& report, const Strictness& strictness) {
  long count = 0;
  for (const Loss& loss : lossesOf(report)) {
    if (strictness.refuses(loss.key, loss.isNote)) count += loss.count;
  }
  if (count == 0) return {};
  return count == missingPieces(report)
             ? number(count, "piece") + " of the text would be missing"
             : number(count, "finding") + (count == 1 ? " is" : " are") + " refused";
}

std::string reportText(const PostReport& report, std::string_view refusal) {
  const host::Summary& summary = report.summary;
  std::string text = host::terminalSafe(summary.file) + ": " + number(summary.elements, "element") +
                     ", " + number(summary.lines, "line") + '\n';
  text += tableText(report.table);
  text += tallyLine("instructions", summary.instructions, false);
  if (report.listing != nullptr) {
    for (const std::string& line : host::summaryLines(*report.listing)) {
      text += "  " + host::terminalSafe(line) + '\n';
    }
  }
  text += tallyLine("WARNING: not evaluated", summary.unevaluated, true);
  text += tallyLine("WARNING: printed without a number", summary.withoutNumber, true);
  text += tallyLine("WARNING: names cut off", summary.dropped, true);
  text += tallyLine("WARNING: operations deleted", summary.deleted, true);
  text += tallyLine("WARNING: printed, but never stated", summary.neverGiven, true);
  text += tallyLine("WARNING: values that no machine can mean", summary.impossible, true);
  text += tallyLine("NOTE: lines wider than 72 columns, which some APT readers cut", summary.wide,
                    true);
  if (report.missingEntries > 0) {
    text += "  WARNING: " + std::to_string(report.missingEntries) +
            " entries of the table were not loaded; -v shows which\n";
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
            {"wide", tallyJson(summary.wide, false)},
            {"tableEntriesNotLoaded", report.missingEntries}};
  if (report.listing == nullptr) return json;
  if (const auto unit = report.listing->unit()) {
    json["unit"] = host::pluralOf(*unit);
    json["feedUnit"] = host::pluralOf(report.listing->vocabulary().feedPerMinute.value_or(*unit));
  }
  json["calls"] = callsJson(report.listing->calls());
  return json;
}
