#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// What became of a call of a listing.
enum class CallFate {
  Move,      ///< A move that stands in the text.
  Line,      ///< What it says stands in the text: in a line of its own or in one after it.
  Other,     ///< Has no line in the text and moves nothing.
  Lost,      ///< Says more than the text does; the tool moves as the text says.
  LostMove,  ///< Moves the tool; the text lacks the move.
  Unknown    ///< Of unknown meaning.
};

struct CallCount {
  std::string name;
  CallFate fate;
  long count;
  /// Line of the first one, from 1.
  long firstLine;
};

/// The calls of a listing by name and fate, in the order in which they appear first.
class CallCounts {
 public:
  /// Counts one call.
  void add(std::string_view name, CallFate fate, long line);

  [[nodiscard]] const std::vector<CallCount>& all() const noexcept { return counts_; }
  /// How many calls met this fate.
  [[nodiscard]] long total(CallFate fate) const;
  /// How many different calls met this fate.
  [[nodiscard]] std::size_t names(CallFate fate) const;
  /// "ARC_FEED 12 (first in line 30), RIGID_TAP 1 (first in line 99)"; empty for none.
  [[nodiscard]] std::string describe(CallFate fate) const;

 private:
  std::vector<CallCount> counts_;
};

}  // namespace host
