#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "post/toolpath/ToolPath.h"

namespace host {

/// One rotary axis of a machine: which word drives it and what a positive word turns. A positive
/// word turns it counterclockwise, seen from the plus end of its axis, or clockwise if reversed.
struct RotaryAxis {
  /// 0, 1, 2 for the words A, B, C.
  std::size_t word;
  /// True where it turns the part, false where it turns the tool.
  bool table;
  /// 0, 1, 2 for the axes X, Y, Z.
  std::size_t axis;
  bool reversed;
};

/// The rotary axes of a machine in order from the part to the tool. When every rotary word is 0,
/// the tool lies along Z, pointing from its tip to its holder.
class RotaryChain {
 public:
  /// Reads "C:table:Z,A:table:X": word, what it turns ("table" or "head"), about which axis (with
  /// "-" before it where a positive word turns clockwise). Nothing, and the reason, if it is wrong.
  [[nodiscard]] static std::optional<RotaryChain> parse(std::string_view text, std::string& reason);

  /// Unit vector of the tool axis, from the tip to the holder, in the part's frame for the words
  /// A, B, C in degrees; words without an axis in the chain are ignored.
  [[nodiscard]] Triple toolAxis(const Triple& words) const;
  /// Whether an axis of the chain is driven by this word (0, 1, 2 for A, B, C).
  [[nodiscard]] bool names(std::size_t word) const;

 private:
  std::string add(std::string_view entry);

  std::vector<RotaryAxis> axes_;
};

}  // namespace host
