// Where a sign of a syntax goes when the values of a line hold commas, or names swallow them.
//
// While references are replaced every sign is a comma, and it comes back in place of the comma that
// has its number by then. Whoever wonders why a "+" is at another place needs to know which comma
// was which. So each comma of the line has an origin in a trail: its number when the signs were
// masked, or 0 for a comma that came with a value. For example, with W = "ON,OFF",
//
//   X/&W+1,2      is masked as   X/&W,1,2        the commas have the origins    1 2
//                                                and the sign "+" has number    1
//   &W is replaced:              X/ON,OFF,1,2    the commas have the origins  0 1 2
//
// The "+" goes back to comma 1, whose origin is 0 now: it moved, from after &W to after ON.
//
// A pass is followed by what it replaced. Each replacement, a reference or a computed group, is
// looked for in the line before the pass, from left to right. The commas in front of it keep their
// origins, those inside it are dropped, and those of the text that takes its place get the origin
// 0:
//
//   X/%(A+B),2    is masked as   X/%(A,B),2      origins  1 2
//   %(A,B) gives 9:              X/9,2           origins  2
//
// The "+" has number 1, and comma 1 has the origin 2: it moved to another comma. A sign whose
// number is above the number of commas is lost.
//
// The same table answers what is after a name: the "," there may be a sign in truth, which is
// looked up by its origin.

#include "inspect/explain/CommaTrail.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "language/syntax/Passes.h"

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

/// A reference as it is in the line while it is processed, its end left out.
std::string opened(const ExplainedReference& reference) {
  return reference.prefix.substr(0, 1) + ppword::withMaskedPercents(reference.name);
}

/// What a pass replaced, from left to right, and by what.
std::vector<std::pair<std::string, std::string>> replacementsOf(const ExplainedPass& pass) {
  std::vector<std::pair<std::string, std::string>> all;
  for (const ExplainedReference& reference : pass.references) {
    if (reference.text) all.emplace_back(opened(reference), *reference.text);
  }
  for (const ExplainedOperation& operation : pass.operations) {
    if (operation.outcome == KEPMfgPPWordListener::Operation::Computed) {
      all.emplace_back(ppword::withMaskedPercents(operation.operation), operation.result);
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

std::optional<char> CommaTrail::characterAfter(const ExplainedReference& reference) {
  const std::string text = opened(reference);
  const std::size_t at = line_.find(text, next_);
  if (at == kNone) return std::nullopt;
  const std::size_t end = at + text.size();
  // What was cut off after the name may hold what looks like a reference.
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
