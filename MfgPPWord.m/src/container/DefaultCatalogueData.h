#pragma once

#include <array>
#include <span>
#include <string_view>

namespace ppword {

/// A parameter type of the default catalogue: the one attribute that it declares (none: an empty
/// name) and, up to the first empty text, that attribute's values.
struct ParameterRow {
  std::string_view name;
  std::string_view attribute;
  std::array<std::string_view, 2> values;
};

/// Marks an instruction that is made only where it is missing.
inline constexpr int kNew = 0;

/// An NC instruction of the default catalogue and, up to the first empty text, its lines.
struct InstructionRow {
  std::string_view name;
  /// kNew, or the mode of the update service that brings the instruction to these lines.
  int updateMode;
  std::array<std::string_view, 10> lines;
};

/// Rows of one table that are made one after the other, first and last row included, from 1.
struct Stretch {
  enum class Rows { Parameters, Instructions };
  Rows rows;
  std::size_t first;
  std::size_t last;
};

extern const std::span<const ParameterRow> kDefaultParameters;
extern const std::span<const InstructionRow> kDefaultInstructions;
/// How the rows of the two tables interleave.
extern const std::span<const Stretch> kMakingOrder;

}  // namespace ppword
