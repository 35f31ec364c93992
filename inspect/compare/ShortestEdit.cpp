#include "inspect/compare/ShortestEdit.h"

#include <algorithm>

namespace host {
namespace {

// Lists with more edits between them are not compared line by line, nor are those that take more
// comparisons for each line.
constexpr std::ptrdiff_t kMostEdits = 1000;
constexpr std::size_t kMostComparisons = 64;

}  // namespace

ShortestEdit::ShortestEdit(Numbers before, Numbers after)
    : before_(before),
      after_(after),
      width_(std::ssize(before)),
      height_(std::ssize(after)),
      most_(std::min(width_ + height_, kMostEdits)),
      left_(kMostComparisons * (before.size() + after.size() + kMostEdits)),
      reached_(2 * static_cast<std::size_t>(most_) + 2) {}

bool ShortestEdit::mark(std::vector<bool>& staysBefore, std::vector<bool>& staysAfter) {
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

/// The number of edits; negative when there are too many.
std::ptrdiff_t ShortestEdit::search() {
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

void ShortestEdit::record(std::ptrdiff_t edits) {
  const auto first = reached_.begin() + (most_ - edits);
  trace_.emplace_back(first, first + 2 * edits + 1);
}

/// Where a diagonal begins with that many edits: a step down or to the right of its neighbours.
std::ptrdiff_t ShortestEdit::firstOn(std::ptrdiff_t diagonal, std::ptrdiff_t edits) {
  if (edits == 0) return 0;
  const bool isDown =
      diagonal == -edits || (diagonal != edits && reached(diagonal - 1) < reached(diagonal + 1));
  return isDown ? reached(diagonal + 1) : reached(diagonal - 1) + 1;
}

/// Follows equal lines; negative when that takes too long.
std::ptrdiff_t ShortestEdit::follow(std::ptrdiff_t x, std::ptrdiff_t diagonal) {
  while (x < width_ && x - diagonal < height_ &&
         before_[static_cast<std::size_t>(x)] == after_[static_cast<std::size_t>(x - diagonal)]) {
    ++x;
    if (left_-- == 0) return -1;
  }
  return x;
}

/// The point from which the last of so many edits goes to a diagonal.
ShortestEdit::Point ShortestEdit::pointBefore(std::ptrdiff_t edits, std::ptrdiff_t diagonal) const {
  const auto& row = trace_[static_cast<std::size_t>(edits) - 1];
  const auto at = [&](std::ptrdiff_t of) { return row[static_cast<std::size_t>(of + edits - 1)]; };
  const bool isDown =
      diagonal == -edits || (diagonal != edits && at(diagonal - 1) < at(diagonal + 1));
  const std::ptrdiff_t from = isDown ? diagonal + 1 : diagonal - 1;
  return {at(from), at(from) - from};
}

}  // namespace host
