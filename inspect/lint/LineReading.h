#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "language/syntax/DivisionCursor.h"
#include "language/syntax/OperationCursor.h"
#include "language/syntax/Passes.h"

namespace host {

/// A reference of a line; one of two that a computed group divides has nothing after its name.
struct LineReference {
  std::size_t start;
  /// What is between the prefix and what ends the reference.
  std::string_view name;
  /// The name that is looked up.
  std::string_view parameter;
  /// How many ")" come after its value.
  std::size_t parentheses = 0;
  /// True for the expression of a "%(".
  bool isExpression = false;

  [[nodiscard]] std::size_t end() const { return start + 1 + name.size(); }
};

/// An operation, and what becomes of it when all values are numbers.
struct LineOperation : ppword::Operation {
  /// True when a sum or difference is part of its left operand.
  bool isAfterSum;
  bool isComputed;
};

/// A part of a line that a computed number takes the place of.
struct LineResult {
  std::size_t begin;
  std::size_t end;
};

/// So much longer is the mask of an escaped percent.
inline constexpr std::size_t kMaskGrowth =
    ppword::kPercentMask.size() - ppword::kEscapedPercent.size();

/// A syntax line as the passes read it. All positions are those of `text`.
struct LineReading {
  LineReading() = default;
  LineReading(const LineReading&) = delete;
  LineReading& operator=(const LineReading&) = delete;

  /// As it is written.
  std::string_view line;
  /// The line with masks in place of escaped percents.
  std::string_view text;
  /// Where the masks are.
  std::vector<std::size_t> masks;
  /// The text before it is computed, as long as `text`: the digits of some number in place of
  /// references, of reciprocals and of computed groups; a group that is computed without a part of
  /// its text is as it was.
  std::string flat;
  /// Which bytes of it are such digits.
  std::vector<bool> values;
  /// Comments and prints are not computed.
  bool isComment = false;
  /// A comment, a print, or another word with text.
  bool isProse = false;
  /// Each from left to right; results as they come.
  std::vector<LineReference> references;
  std::vector<ppword::Division> divisions;
  std::vector<LineOperation> operations;
  std::vector<LineResult> results;

  [[nodiscard]] bool isValue(std::size_t position) const {
    return position < values.size() && values[position];
  }
  /// A position of the text as one of the line.
  [[nodiscard]] std::size_t lineOffset(std::size_t position) const {
    const auto before = std::lower_bound(masks.begin(), masks.end(), position) - masks.begin();
    return position - static_cast<std::size_t>(before) * kMaskGrowth;
  }
  /// A part of the text as it is written.
  [[nodiscard]] std::string_view written(std::size_t begin, std::size_t size) const {
    const std::size_t from = lineOffset(begin);
    return line.substr(from, lineOffset(begin + size) - from);
  }
};

}  // namespace host
