#include "tools/ppword/Kinds.h"

#include <algorithm>

#include "inspect/lint/LintRules.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Refusal.h"
#include "verify/Rules.h"

namespace {

// From here on the rules are those of the check without the lint.
constexpr auto kFirstOfCheck = static_cast<std::size_t>(host::LintKey::NoSection);

std::string_view weightName(verify::Weight weight) {
  using enum verify::Weight;
  if (weight == Error) return "error";
  return weight == Warning ? "warning" : "note";
}

std::vector<Kind> makeKinds() {
  std::vector<Kind> kinds;
  for (const host::LintRule& rule : host::lintRules()) {
    kinds.push_back({rule.key, "check", host::severityName(rule.severity), rule.fault, rule.hint,
                     rule.about, rule.reported, rule.sound, kinds.size() < kFirstOfCheck});
  }
  kinds.insert(kinds.end(), lossKinds().begin(), lossKinds().end());
  for (const verify::RuleRow& row : verify::rules()) {
    // The check of tables has them too.
    if (row.key == kWideLine || row.key == kUnfitLine) continue;
    kinds.push_back({row.key, "verify", weightName(row.weight), row.fault, row.hint, row.about,
                     row.reported, row.sound});
  }
  return kinds;
}

/// Adds the keys of a list between commas.
void addKeys(std::string_view text, std::vector<std::string_view>& keys) {
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(',', at), text.size());
    keys.push_back(kindOf(text.substr(at, end - at)).key);
    at = end + 1;
  }
}

bool holds(const std::vector<std::string_view>& keys, std::string_view key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

}  // namespace

std::span<const Kind> allKinds() {
  static const std::vector<Kind> kinds = makeKinds();
  return kinds;
}

const Kind& kindOf(std::string_view key) {
  const auto all = allKinds();
  const auto found =
      std::find_if(all.begin(), all.end(), [key](const Kind& kind) { return kind.key == key; });
  if (found != all.end()) return *found;
  std::vector<std::string_view> keys;
  keys.reserve(all.size());
  for (const Kind& kind : all) keys.push_back(kind.key);
  if (key.starts_with("ERR_")) {
    throw UsageError{"'" + std::string(key) + "' is an error, which is always refused"};
  }
  throw UsageError{"there is no kind '" + std::string(key) +
                   "' ('ppword check --explain' lists all)" + suggestion(key, keys)};
}

Strictness::Strictness(const StrictnessOptions& options) {
  for (const std::string& keys : options.refused) {
    if (keys == kAllKinds) {
      all_ = true;
    } else {
      addKeys(keys, refused_);
    }
  }
  for (const std::string& keys : options.allowed) addKeys(keys, allowed_);
}

std::string_view Strictness::lintKey() const {
  const auto found = std::find_if(refused_.begin(), refused_.end(),
                                  [](std::string_view key) { return kindOf(key).needsLint; });
  return found == refused_.end() ? std::string_view() : *found;
}

bool Strictness::allows(std::string_view key) const { return holds(allowed_, key); }

void Strictness::require(std::string_view key) { required_.push_back(kindOf(key).key); }

bool Strictness::refuses(std::string_view key, bool isNote) const {
  if (holds(required_, key) || (requiresAll_ && !isNote)) return true;
  if (allows(key)) return false;
  return holds(refused_, key) || (all_ && !isNote);
}
