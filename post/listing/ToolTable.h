#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

#include "post/listing/LengthUnit.h"

namespace host {

/// A tool of a tool table. Lengths are in the unit of the machine.
struct TableTool {
  int pocket = 0;
  /// The offsets x y z a b c u v w.
  std::array<double, 9> offset{};
  double diameter = 0.0;
  /// I, J and Q: the angles and the orientation of a turning tool.
  double frontAngle = 0.0;
  double backAngle = 0.0;
  int orientation = 0;
  std::string comment;
  /// Where the table has it, from 1.
  long line = 0;
};

/// The tools of a machine by their numbers.
struct ToolTable {
  /// The file that it was read from.
  std::string file;
  std::map<int, TableTool> tools;
  /// The unit of its lengths.
  LengthUnit unit = LengthUnit::Millimetre;
};

/// The most tools that rs274 takes.
inline constexpr std::size_t kMostTools = 1000;

/// Reads a tool table as rs274 reads it, "T17 P17 Z57 D6 ;6 mm end mill". Raises an InputError for
/// a file that cannot be read, and where rs274 would skip a line or a word without a message.
[[nodiscard]] ToolTable readToolTable(const std::string& path, LengthUnit unit);

/// The table with its lengths in inches, in the form that rs274 reads.
[[nodiscard]] std::string toolTableText(const ToolTable& table);

}  // namespace host
