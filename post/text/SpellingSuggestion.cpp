#include "post/text/SpellingSuggestion.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace host {
namespace {

constexpr std::size_t kLongest = 64;

bool isSameLetter(char left, char right) {
  const auto small = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c; };
  return small(left) == small(right);
}

// Edit distance with swaps of neighbours: rows of the usual table, two back for the swaps.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> before(to.size() + 1);
  std::vector<std::size_t> last(to.size() + 1);
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 1; i <= from.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (isSameLetter(from[i - 1], to[j - 1]) ? 0 : 1);
      row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
      const bool swapped = i > 1 && j > 1 && isSameLetter(from[i - 1], to[j - 2]) &&
                           isSameLetter(from[i - 2], to[j - 1]);
      if (swapped) row[j] = std::min(row[j], before[j - 2] + 1);
    }
    before.swap(last);
    last.swap(row);
  }
  return last.back();
}

}  // namespace

std::string_view nearest(std::string_view word, std::span<const std::string_view> candidates) {
  std::string_view best;
  if (word.size() > kLongest) return best;
  for (const std::string_view prefix : {"NC_", "MFG_"}) {
    const std::string whole = std::string(prefix).append(word);
    const auto found = std::find_if(candidates.begin(), candidates.end(), [&](auto candidate) {
      return std::equal(candidate.begin(), candidate.end(), whole.begin(), whole.end(),
                        isSameLetter);
    });
    if (!word.empty() && found != candidates.end()) return *found;
  }
  std::size_t least = std::max<std::size_t>(word.size() / 3, 1) + 1;
  for (const std::string_view candidate : candidates) {
    const std::size_t edits = distance(word, candidate);
    if (edits >= least) continue;
    least = edits;
    best = candidate;
  }
  return best;
}

}  // namespace host
