#include "tools/ppword/view/FindingPlaces.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Kinds.h"

namespace {

// What is counted together beyond the names that are counted each.
constexpr std::string_view kOthers = "(others)";

// The kind of finding that a call is; empty for none.
std::string_view keyOf(host::CallFate fate) {
  using enum host::CallFate;
  if (fate == Dropped) return kLostCall;
  if (fate == UnsupportedMove) return kLostMove;
  if (fate == Chords) return kChords;
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
                {kCutText, &host::Summary::cutTexts},
                {kDeleted, &host::Summary::deleted},
                {kNeverGiven, &host::Summary::neverGiven},
                {kRoundedToZero, &host::Summary::roundedToZero},
                {kMissingDimension, &host::Summary::missingDimensions},
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

void FindingPlaces::addPlace(std::string_view key, std::string_view name, long element) {
  if (++places_ > kMostPlaces) return;
  elements_.addStep(element);
  numbers_.add(static_cast<std::int64_t>(numberOf(key, host::terminalSafe(name))));
}

std::size_t FindingPlaces::numberOf(std::string_view key, const std::string& name) {
  return known_.try_emplace({key, name}, known_.size()).first->second;
}

Json FindingPlaces::findingJson(std::string_view key, const Count& count) {
  return {{"number", numberOf(key, count.name)},
          {"key", key},
          {"name", count.name},
          {"count", count.count},
          {"line", count.line},
          {"file", host::terminalSafe(count.file)}};
}

void FindingPlaces::addFindings(const Counts& counts, Json& list) {
  for (const Count& count : counts.all) list.push_back(findingJson(counts.key, count));
  const Count others{counts.all.empty() ? "" : std::string(kOthers), counts.others, "", 0, ""};
  if (counts.others > 0) list.push_back(findingJson(counts.key, others));
}

Json FindingPlaces::json(const PostReport& report) {
  Json kinds = Json::object();
  Json list = Json::array();
  for (const Counts& counts : findingsOf(report)) {
    // The text of a page is not read back: there is no file of it.
    if (counts.total() == 0 || counts.key == kNotVerified) continue;
    kinds[std::string(counts.key)] = kindJson(counts.key);
    addFindings(counts, list);
  }
  return {{"kinds", std::move(kinds)},
          {"list", std::move(list)},
          {"elements", elements_.text()},
          {"numbers", numbers_.text()}};
}
