#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "post/parameters/BufferValue.h"

namespace host {

/// The parameter that every activity of a job or a listing has: MM or INCHES.
inline constexpr std::string_view kUnitParameter = "MFG_UNIT";

/// What a parameter prints: a number in its format, a number with six decimals whatever its format
/// is, a whole number, a text, or a word of its list.
enum class ParameterType { Real, FixedReal, Integer, Text, Word };

/// Where the value of a parameter comes from: a motion buffer, or what the current activity has or
/// leads to. A parameter that the activity does not have is looked up on its tool, then on the
/// assembly, then on the insert.
enum class ParameterSource { Buffer, Activity, Tool, Assembly, Insert };

/// A row of the table of known parameters. A row with letters is for several parameters: in its
/// texts "?" is a letter of the parameter.
struct ParameterRow {
  std::string_view name;
  std::string_view letters;
  ParameterType type;
  /// Empty for a number without one and for what is not a number.
  std::string_view unit;
  ParameterSource source;
  /// The key of a job that states the value.
  std::string_view job;
  /// The values of motion buffers from which it is computed; none when it prints something else.
  BufferValues values;
  std::string_view meaning;
};

/// A known parameter: its name, its row and which of the row's letters it has, from 0.
struct Parameter {
  std::string name;
  const ParameterRow* row;
  std::size_t letter;
};

/// The rows in the order of the manual.
[[nodiscard]] std::span<const ParameterRow> parameterRows();
/// All known parameters in that order.
[[nodiscard]] std::span<const Parameter> knownParameters();
/// The parameter of that name; null when it is unknown.
[[nodiscard]] const Parameter* findParameter(std::string_view name);
/// What it means, with its letter; without the quotes that the manual has around words.
[[nodiscard]] std::string meaningOf(const Parameter& parameter);

/// "real", "integer", "text" or "word": both kinds of real numbers have one name.
[[nodiscard]] std::string_view typeName(ParameterType type);
/// "buffer", "activity", "tool", "assembly" or "insert".
[[nodiscard]] std::string_view sourceName(ParameterSource source);

}  // namespace host
