#include "inspect/compare/LineDifference.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <unordered_map>

#include "inspect/compare/ShortestEdit.h"

namespace host {
namespace {

using Lines = std::vector<std::string_view>;
using Numbers = std::vector<std::uint32_t>;

/// The parts of two lists between what they begin and end with in common.
struct Middle {
  std::size_t first = 0;
  std::size_t beforeEnd;
  std::size_t afterEnd;
};

Middle middleOf(const Lines& before, const Lines& after) {
  Middle middle{0, before.size(), after.size()};
  const std::size_t shorter = std::min(before.size(), after.size());
  while (middle.first < shorter && before[middle.first] == after[middle.first]) ++middle.first;
  while (std::min(middle.beforeEnd, middle.afterEnd) > middle.first &&
         before[middle.beforeEnd - 1] == after[middle.afterEnd - 1]) {
    --middle.beforeEnd;
    --middle.afterEnd;
  }
  return middle;
}

/// Equal lines get equal numbers.
Numbers numbered(std::span<const std::string_view> lines,
                 std::unordered_map<std::string_view, std::uint32_t>& numbers) {
  Numbers all;
  all.reserve(lines.size());
  for (const std::string_view line : lines) {
    all.push_back(
        numbers.try_emplace(line, static_cast<std::uint32_t>(numbers.size())).first->second);
  }
  return all;
}

/// The hunks between the lines that stay; `first` is the number of lines before them.
std::vector<LineHunk> hunksBetween(const std::vector<bool>& before, const std::vector<bool>& after,
                                   std::size_t first) {
  std::vector<LineHunk> hunks;
  for (std::size_t x = 0, y = 0; x < before.size() || y < after.size();) {
    const std::size_t beginX = x;
    const std::size_t beginY = y;
    while (x < before.size() && !before[x]) ++x;
    while (y < after.size() && !after[y]) ++y;
    if (beginX < x || beginY < y) {
      hunks.push_back({{first + beginX, first + x}, {first + beginY, first + y}});
    }
    for (; x < before.size() && y < after.size() && before[x] && after[y]; ++x) ++y;
  }
  return hunks;
}

}  // namespace

std::vector<LineHunk> lineHunks(const Lines& before, const Lines& after) {
  const auto [first, beforeEnd, afterEnd] = middleOf(before, after);
  std::unordered_map<std::string_view, std::uint32_t> numbers;
  const auto old = numbered(std::span(before).subspan(first, beforeEnd - first), numbers);
  const auto now = numbered(std::span(after).subspan(first, afterEnd - first), numbers);
  std::vector<bool> staysBefore(old.size());
  std::vector<bool> staysAfter(now.size());
  ShortestEdit(old, now).mark(staysBefore, staysAfter);
  return hunksBetween(staysBefore, staysAfter, first);
}

}  // namespace host
