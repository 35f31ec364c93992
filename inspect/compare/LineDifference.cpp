#include "inspect/compare/LineDifference.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <utility>

namespace host {
namespace {

using Lines = std::vector<std::string_view>;
using Numbers = std::vector<std::uint32_t>;

// Lists with more edits between them are not compared line by line, nor are those that take more
// comparisons for each line.
constexpr std::ptrdiff_t kMostEdits = 1000;
constexpr std::size_t kMostComparisons = 64;

/// Finds the shortest list of edits, as in E. W. Myers, An O(ND) Difference Algorithm (1986): the
/// point (x, y) is reached when x old and y new lines are done, and is on the diagonal x - y.
class ShortestEdit {
 public:
  ShortestEdit(std::span<const std::uint32_t> before, std::span<const std::uint32_t> after)
      : before_(before),
        after_(after),
        width_(std::ssize(before)),
        height_(std::ssize(after)),
        most_(std::min(width_ + height_, kMostEdits)),
        left_(kMostComparisons * (before.size() + after.size() + kMostEdits)),
        reached_(2 * static_cast<std::size_t>(most_) + 2) {}

  /// Marks the lines that stay. False, and nothing is marked, when that takes too long.
  bool mark(std::vector<bool>& staysBefore, std::vector<bool>& staysAfter) {
    const std::ptrdiff_t edits = search();
    if (edits < 0) return false;
    std::ptrdiff_t x = width_;
    std::ptrdiff_t y = height_;
    for (std::ptrdiff_t edit = edits; x > 0 || y > 0; --edit) {
      const auto [beginX, beginY] = edit > 0 ? pointBefore(edit, x - y) : std::pair(-1L, -1L);
      const bool isRight = beginX - beginY < x - y;
      const std::ptrdiff_t first = edit == 0 ? 0 : beginX + (isRight ? 1 : 0);
      for (; x > first; --x, --y) {
        staysBefore[static_cast<std::size_t>(x) - 1] = true;
        staysAfter[static_cast<std::size_t>(y) - 1] = true;
      }
      x = std::max(beginX, 0L);
      y = std::max(beginY, 0L);
    }
    return true;
  }

 private:
  [[nodiscard]] std::ptrdiff_t& reached(std::ptrdiff_t diagonal) {
    return reached_[static_cast<std::size_t>(diagonal + most_)];
  }

  /// The number of edits; negative when there are too many.
  std::ptrdiff_t search() {
    for (std::ptrdiff_t edits = 0; edits <= most_; ++edits) {
      for (std::ptrdiff_t diagonal = -edits; diagonal <= edits; diagonal += 2) {
        const std::ptrdiff_t x = follow(firstOn(diagonal, edits), diagonal);
        if (x < 0) return -1;
        reached(diagonal) = x;
        if (x >= width_ && x - diagonal >= height_) return edits;
      }
      record(edits);
    }
    return -1;
  }

  void record(std::ptrdiff_t edits) {
    const auto first = reached_.begin() + (most_ - edits);
    trace_.emplace_back(first, first + 2 * edits + 1);
  }

  /// Where a diagonal begins with that many edits: a step down or to the right of its neighbours.
  [[nodiscard]] std::ptrdiff_t firstOn(std::ptrdiff_t diagonal, std::ptrdiff_t edits) {
    if (edits == 0) return 0;
    const bool isDown =
        diagonal == -edits || (diagonal != edits && reached(diagonal - 1) < reached(diagonal + 1));
    return isDown ? reached(diagonal + 1) : reached(diagonal - 1) + 1;
  }

  /// Follows equal lines; negative when that takes too long.
  std::ptrdiff_t follow(std::ptrdiff_t x, std::ptrdiff_t diagonal) {
    while (x < width_ && x - diagonal < height_ &&
           before_[static_cast<std::size_t>(x)] == after_[static_cast<std::size_t>(x - diagonal)]) {
      ++x;
      if (left_-- == 0) return -1;
    }
    return x;
  }

  /// The point from which the last of so many edits goes to a diagonal.
  [[nodiscard]] std::pair<std::ptrdiff_t, std::ptrdiff_t> pointBefore(
      std::ptrdiff_t edits, std::ptrdiff_t diagonal) const {
    const auto& row = trace_[static_cast<std::size_t>(edits) - 1];
    const auto at = [&](std::ptrdiff_t of) {
      return row[static_cast<std::size_t>(of + edits - 1)];
    };
    const bool isDown =
        diagonal == -edits || (diagonal != edits && at(diagonal - 1) < at(diagonal + 1));
    const std::ptrdiff_t from = isDown ? diagonal + 1 : diagonal - 1;
    return {at(from), at(from) - from};
  }

  std::span<const std::uint32_t> before_;
  std::span<const std::uint32_t> after_;
  std::ptrdiff_t width_;
  std::ptrdiff_t height_;
  std::ptrdiff_t most_;
  std::size_t left_;
  /// How far each diagonal was followed, and that after each number of edits.
  std::vector<std::ptrdiff_t> reached_;
  std::vector<std::vector<std::ptrdiff_t>> trace_;
};

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
