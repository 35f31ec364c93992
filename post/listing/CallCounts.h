#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "post/toolpath/ToolPath.h"

namespace host {

/// How a call of a listing was written.
enum class CallFate {
  Move,             ///< A move, written to the output.
  Chords,           ///< An arc, written to the output as straight moves along its chords.
  Written,          ///< Written to the output, in its own line or a later one.
  Other,            ///< Needs no line in the output; no motion.
  Dropped,          ///< Only partly written; the tool moves as the output says.
  UnsupportedMove,  ///< A move that is missing from the output.
  Unknown           ///< Of unknown meaning.
};

struct CallCount {
  std::string name;
  CallFate fate;
  long count;
  /// Line of the first one, from 1.
  long firstLine;
  /// The file of that line if the NC program calls it; empty otherwise.
  std::string firstFile{};
};

/// The calls of a listing by name and fate, in the order in which they appear first.
class CallCounts {
 public:
  /// Counts one call.
  void add(std::string_view name, CallFate fate, SourceLine place);

  [[nodiscard]] const std::vector<CallCount>& all() const noexcept { return counts_; }
  /// How many calls have this fate.
  [[nodiscard]] long total(CallFate fate) const;
  /// How many different calls have this fate.
  [[nodiscard]] std::size_t names(CallFate fate) const;

 private:
  std::vector<CallCount> counts_;
};

}  // namespace host
