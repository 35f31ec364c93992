#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace verify {

/// What a text is written with, as plain texts: the lines and words of a document. The reader of
/// the text takes nothing else from it.
struct DocumentWords {
  using Lines = std::vector<std::string>;

  /// The lines of each sequence of an NC instruction, by its name.
  std::map<std::string, std::vector<Lines>, std::less<>> instructions;
  /// The words of a parameter, by its name.
  std::map<std::string, Lines, std::less<>> lists;
  /// The format of a parameter that prints a number, by its name. The reader asks only whether it
  /// prints one, and nothing else: how many digits there are is seen in the text, and a number is
  /// compared to half a unit of the last one.
  std::map<std::string, std::string, std::less<>> formats;
  /// The instruction and the sequence of each PP command, by its position from 1.
  std::vector<std::pair<std::string, int>> ppCommands;
  /// What is printed for a parameter without a value.
  std::string unevaluated;
};

/// What the generation states that a text is written in.
struct Generation {
  /// Angles in radians are multiplied by it.
  double angleFactor = 1.0;
  /// Of the parameters of points and tool axes, before those of the document; empty for none.
  std::string pointFormat{};
  std::string axisFormat{};
};

}  // namespace verify
