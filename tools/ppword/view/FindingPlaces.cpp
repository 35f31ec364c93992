#include "tools/ppword/view/FindingPlaces.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Kinds.h"

namespace {

// What is counted together beyond the names that are counted each.
constexpr std::string_view kOthers = "(others)";

// The kind of finding that a call is; empty for one that lost nothing.
std::string_view keyOf(host::CallFate fate) {
  using enum host::CallFate;
  if (fate == Dropped) return kLostCall;
  if (fate == UnsupportedMove) return kLostMove;
  return fate == Unknown ? kUnknownCall : std::string_view();
}

Json kindJson(std::string_view key) {
  const Kind& kind = kindOf(key);
  return {{"severity", kind.severity},
          {"fault", kind.fault},
          {"hint", kind.hint},
          {"about", kind.about}};
}

}  // namespace

FindingPlaces::FindingPlaces(const host::Summary& summary, const host::ListingReader* listing)
    : summary_(summary),
      listing_(listing),
      followed_{{kUnevaluated, &host::Summary::unevaluated},
                {kWithoutNumber, &host::Summary::withoutNumber},
                {kCutOff, &host::Summary::dropped},
                {kDeleted, &host::Summary::deleted},
                {kNeverGiven, &host::Summary::neverGiven},
                {kImpossible, &host::Summary::impossible, true},
                {kWideLine, &host::Summary::wide}} {}

void FindingPlaces::noteBefore(long element) {
  for (Followed& followed : followed_) {
    if ((summary_.*followed.tally).total() == followed.total) continue;
    note(followed, followed.isBeforeElement ? element : std::max(element - 1, 0L));
  }
  if (listing_ != nullptr) noteCalls(element);
}

void FindingPlaces::note(Followed& followed, long element) {
  const host::Tally& tally = summary_.*followed.tally;
  const auto& entries = tally.entries();
  followed.total = tally.total();
  followed.counts.resize(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].count == followed.counts[i]) continue;
    followed.counts[i] = entries[i].count;
    addPlace(followed.key, entries[i].name, element);
  }
}

void FindingPlaces::noteCalls(long element) {
  const auto& all = listing_->calls().all();
  calls_.resize(all.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (all[i].count == calls_[i]) continue;
    calls_[i] = all[i].count;
    const std::string_view key = keyOf(all[i].fate);
    if (!key.empty()) addPlace(key, all[i].name, element);
  }
}

void FindingPlaces::addPlace(std::string_view key, const std::string& name, long element) {
  if (++places_ > kMostPlaces) return;
  elements_.addStep(element);
  numbers_.add(static_cast<std::int64_t>(numberOf(key, name)));
}

std::size_t FindingPlaces::numberOf(std::string_view key, const std::string& name) {
  const auto [known, isNew] = known_.try_emplace({key, name}, findings_.size());
  if (isNew) findings_.push_back({key, name});
  return known->second;
}

void FindingPlaces::count(const Finding& finding) {
  if (finding.count > 0) findings_[numberOf(finding.key, finding.name)] = finding;
}

void FindingPlaces::count(std::string_view key, const host::Tally& tally) {
  for (const host::Tally::Entry& entry : tally.entries()) {
    count({key, entry.name, entry.count, entry.firstLine, entry.firstFile});
  }
  count({key, std::string(kOthers), tally.others()});
}

void FindingPlaces::countWithoutPlaces(const PostReport& report) {
  count(kMisspelt, report.summary.misspelt);
  count({kTableEntry, "", report.missingEntries});
  if (report.listing != nullptr) count({kBareComment, "", host::bareTexts(*report.listing)});
  if (report.machineWords == nullptr) return;
  for (const host::MachineWord& word : *report.machineWords) {
    const std::string file = word.file == report.summary.file ? "" : word.file;
    count({kMachineCoordinates, word.name, word.count, word.line, file});
  }
}

Json FindingPlaces::json(const PostReport& report) {
  for (const Followed& followed : followed_) count(followed.key, report.summary.*followed.tally);
  for (const host::CallCount& call :
       report.listing == nullptr ? std::vector<host::CallCount>() : report.listing->calls().all()) {
    const std::string_view key = keyOf(call.fate);
    if (!key.empty()) count({key, call.name, call.count, call.firstLine, call.firstFile});
  }
  countWithoutPlaces(report);
  Json kinds = Json::object();
  Json list = Json::array();
  for (const Finding& finding : findings_) {
    kinds[std::string(finding.key)] = kindJson(finding.key);
    list.push_back({{"key", finding.key},
                    {"name", host::terminalSafe(finding.name)},
                    {"count", finding.count},
                    {"line", finding.line},
                    {"file", host::terminalSafe(finding.file)}});
  }
  return {{"kinds", std::move(kinds)},
          {"list", std::move(list)},
          {"elements", elements_.text()},
          {"numbers", numbers_.text()}};
}
