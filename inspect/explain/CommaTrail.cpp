#include "inspect/explain/CommaTrail.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace host {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

auto commasIn(std::string_view text) { return std::count(text.begin(), text.end(), ','); }

/// The argument that ends at `end`.
std::string argumentBefore(std::string_view line, std::size_t end) {
  const std::string_view text = line.substr(0, end);
  const std::size_t separator = text.find_last_of(",/");
  return std::string(separator == kNone ? text : text.substr(separator + 1));
}

/// A name as it stands in the line while it is processed.
std::string masked(std::string name) {
  for (std::size_t at = name.find("\\%"); at != kNone; at = name.find("\\%", at)) {
    name.replace(at, 2, "@#@#@#@#");
  }
  return name;
}

/// A reference as it stands in the line while it is processed, its end left out.
std::string opened(const ExplainedReference& reference) {
  return reference.prefix.substr(0, 1) + masked(reference.name);
}

/// What a pass replaced, from left to right, and by what.
std::vector<std::pair<std::string, std::string>> replacementsOf(const ExplainedPass& pass) {
  std::vector<std::pair<std::string, std::string>> all;
  for (const ExplainedReference& reference : pass.references) {
    if (reference.text) all.emplace_back(opened(reference), *reference.text);
  }
  for (const ExplainedOperation& operation : pass.operations) {
    if (operation.outcome == KEPMfgPPWordListener::Operation::Computed) {
      all.emplace_back(masked(operation.operation), operation.result);
    }
  }
  return all;
}

}  // namespace

CommaTrail::CommaTrail(std::string_view line, std::string_view masked) {
  startAt(masked);
  origins_.resize(commas_.size());
  std::iota(origins_.begin(), origins_.end(), 1);
  int ordinal = 0;
  for (std::size_t at = 0; at < std::min(line.size(), masked.size()); ++at) {
    if (masked[at] != ',') continue;
    ++ordinal;
    if (line[at] != ',') signs_.push_back({line[at], ordinal, argumentBefore(masked, at)});
  }
}

void CommaTrail::follow(const ExplainedPass& pass) {
  std::vector<int> origins;
  auto next = origins_.begin();
  const auto keep = [&](std::string_view text) {
    const auto end = next + std::min(commasIn(text), origins_.end() - next);
    origins.insert(origins.end(), std::exchange(next, end), end);
  };
  std::size_t from = 0;
  for (const auto& [what, by] : replacementsOf(pass)) {
    const std::size_t at = line_.find(what, from);
    if (at == kNone) continue;
    keep(std::string_view(line_).substr(from, at - from));
    next += std::min(commasIn(what), origins_.end() - next);
    origins.insert(origins.end(), static_cast<std::size_t>(commasIn(by)), 0);
    from = at + what.size();
  }
  keep(std::string_view(line_).substr(from));
  origins_ = std::move(origins);
  startAt(pass.line);
}

void CommaTrail::startAt(std::string_view line) {
  line_ = line;
  next_ = 0;
  commas_.clear();
  for (std::size_t at = line.find(','); at != kNone; at = line.find(',', at + 1)) {
    commas_.push_back(at);
  }
}

char CommaTrail::meantBy(std::size_t comma) const {
  const auto place = std::lower_bound(commas_.begin(), commas_.end(), comma);
  const auto index = static_cast<std::size_t>(place - commas_.begin());
  if (index >= origins_.size()) return ',';
  const int origin = origins_[index];
  const auto sign =
      std::lower_bound(signs_.begin(), signs_.end(), origin,
                       [](const Sign& each, int ordinal) { return each.ordinal < ordinal; });
  return sign != signs_.end() && sign->ordinal == origin ? sign->sign : ',';
}

std::optional<char> CommaTrail::characterBehind(const ExplainedReference& reference) {
  const std::string text = opened(reference);
  const std::size_t at = line_.find(text, next_);
  if (at == kNone) return std::nullopt;
  const std::size_t end = at + text.size();
  // What was cut off behind the name may hold what looks like a reference.
  next_ = std::min(line_.find(reference.prefix == "%(" ? ')' : ',', end), line_.size());
  if (end == line_.size()) return std::nullopt;
  return line_[end] == ',' ? meantBy(end) : line_[end];
}

std::optional<std::string> CommaTrail::placeOf(const Sign& sign) const {
  const auto index = static_cast<std::size_t>(sign.ordinal - 1);
  if (index >= commas_.size()) return std::nullopt;
  return argumentBefore(line_, commas_[index]);
}

bool CommaTrail::isMoved(const Sign& sign) const {
  const auto index = static_cast<std::size_t>(sign.ordinal - 1);
  return index >= origins_.size() || origins_[index] != sign.ordinal;
}

}  // namespace host
