#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace host {

/// Finds the shortest list of edits that makes one list of numbers another one, as in E. W. Myers,
/// An O(ND) Difference Algorithm (1986): the point (x, y) is reached when x old and y new numbers
/// are done, and is on the diagonal x - y. The lists must outlive it.
class ShortestEdit {
 public:
  using Numbers = std::span<const std::uint32_t>;

  ShortestEdit(Numbers before, Numbers after);

  /// Marks the numbers that stay; both lists of marks are as long as those of numbers. False, and
  /// nothing is marked, when there are more than 1000 edits or finding them takes too long.
  bool mark(std::vector<bool>& staysBefore, std::vector<bool>& staysAfter);

 private:
  using Point = std::pair<std::ptrdiff_t, std::ptrdiff_t>;

  [[nodiscard]] std::ptrdiff_t& reached(std::ptrdiff_t diagonal) {
    return reached_[static_cast<std::size_t>(diagonal + most_)];
  }
  std::ptrdiff_t search();
  void record(std::ptrdiff_t edits);
  [[nodiscard]] std::ptrdiff_t firstOn(std::ptrdiff_t diagonal, std::ptrdiff_t edits);
  std::ptrdiff_t follow(std::ptrdiff_t x, std::ptrdiff_t diagonal);
  [[nodiscard]] Point pointBefore(std::ptrdiff_t edits, std::ptrdiff_t diagonal) const;

  Numbers before_;
  Numbers after_;
  std::ptrdiff_t width_;
  std::ptrdiff_t height_;
  std::ptrdiff_t most_;
  std::size_t left_;
  /// How far each diagonal was followed, and that after each number of edits.
  std::vector<std::ptrdiff_t> reached_;
  std::vector<std::vector<std::ptrdiff_t>> trace_;
};

}  // namespace host
