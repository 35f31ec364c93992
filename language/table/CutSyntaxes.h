#pragma once

#include <cstddef>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ppword {

/// The width of an element that may have been cut. A list without one needs no mending.
inline constexpr std::size_t kCutWidth = 80;

/// Mends elements that were cut at column 80: an element of that width that ends inside a parameter
/// name takes the next element's characters up to its first ",". The number of elements stays; one
/// whose characters all moved up is empty.
///
/// The elements lie in one text, and mending moves ends of elements in it. An element that took
/// characters ends in a "," and is never cut again, so that each end moves at most once, and only
/// its neighbours must be looked at again. Mending nested lists, each after those in it, takes as
/// many steps as there are elements and lists, and no step looks at a whole list.
class CutSyntaxes {
 public:
  explicit CutSyntaxes(std::span<const std::string> elements);

  /// Mends the elements from `first` to before `last` as a list of its own. Returns how many of
  /// them it looked at: 0 when mending this list again can change nothing.
  std::size_t mend(std::size_t first, std::size_t last);

  [[nodiscard]] std::vector<std::string> elements() const;

 private:
  [[nodiscard]] std::size_t startOf(std::size_t i) const { return i == 0 ? 0 : ends_[i - 1]; }
  [[nodiscard]] std::string_view element(std::size_t i) const;
  [[nodiscard]] std::size_t mendedEnd(std::size_t i) const;
  void lookAgainAt(std::size_t i);

  std::string text_;
  std::vector<std::size_t> ends_;
  std::vector<std::size_t> commas_;  // their places in the text
  std::set<std::size_t> unseen_;     // elements that may be cut, not looked at since they changed
};

}  // namespace ppword
