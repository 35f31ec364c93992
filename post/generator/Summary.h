#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/system/TextHash.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// Counts by name, in the order in which the names appear first.
class Tally {
 public:
  /// How many names are counted each; further names are counted together as others.
  static constexpr std::size_t kMostNames = 1000;

  struct Entry {
    std::string name;
    long count = 0;
    /// Where the name appears first: the line of the tool path, from 1, and its NC instruction.
    long firstLine = 0;
    std::string firstInstruction;
    /// The file of that line if an NC program calls it; empty otherwise.
    std::string firstFile;
  };

  /// Counts `times` appearances of a name.
  void add(std::string_view name, SourceLine place, std::string_view instruction, long times = 1);

  [[nodiscard]] const std::vector<Entry>& entries() const noexcept { return entries_; }
  [[nodiscard]] long others() const noexcept { return others_; }
  /// Everything that was counted.
  [[nodiscard]] long total() const noexcept { return total_; }

 private:
  std::vector<Entry> entries_;
  TextMap<std::size_t> indexes_;
  long others_ = 0;
  long total_ = 0;
};

inline void Tally::add(std::string_view name, SourceLine place, std::string_view instruction,
                       long times) {
  total_ += times;
  const auto known = indexes_.find(name);
  if (known != indexes_.end()) {
    entries_[known->second].count += times;
  } else if (entries_.size() < kMostNames) {
    indexes_.emplace(name, entries_.size());
    entries_.push_back(
        {std::string(name), times, place.line, std::string(instruction), std::string(place.file)});
  } else {
    others_ += times;
  }
}

/// What a generation did.
struct Summary {
  /// Name of the tool path; the lines of the tallies are lines of it.
  std::string file;
  /// Tool-path elements written: one for each position of an element that has positions.
  long elements = 0;
  /// Lines of text written.
  long lines = 0;
  /// NC instructions used, once for each element written.
  Tally instructions;
  /// References that could not be evaluated, by the parameter's name.
  Tally unevaluated;
  /// References to a number whose format printed no digit, by the parameter's name.
  Tally withoutNumber;
  /// Parameters that print a value of a motion buffer which the tool path has not stated, by name.
  Tally neverGiven;
  /// Texts of activities, tools and assemblies whose end was cut off, by the parameter's name.
  Tally cutTexts;
  /// Feed rates, speeds, radii and pitches that are not 0 and were printed as 0, by the parameter's
  /// name.
  Tally roundedToZero;
  /// Parameters that print a dimension which is not stated as 0, by name.
  Tally missingDimensions;
  /// Stated values that no machine can mean, by the name that a job has for them: a tool axis whose
  /// length differs from 1 by more than 1e-4, a negative feed rate or speed, a circle or helix of
  /// radius 0, a number of 1e15 or more.
  Tally impossible;
  /// Parameters of activities that nothing asks for, by name and the known one that is perhaps
  /// meant, with the activity; counted when the whole tool path is written.
  Tally misspelt;
  /// Lines wider than the columns of a statement, by the NC instruction.
  Tally wide;
  /// Ends of parameter names that were cut off, by the name with its end.
  Tally dropped;
  /// Operations deleted because an operand was missing, and signs whose place was gone.
  Tally deleted;
};

}  // namespace host
