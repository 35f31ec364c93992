#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/system/TextHash.h"

namespace host {

/// Counts by name, in the order in which the names appear first.
class Tally {
 public:
  /// How many names are told apart; what has further names is counted as others.
  static constexpr std::size_t kMostNames = 1000;

  struct Entry {
    std::string name;
    long count = 0;
    /// Where the name appears first: the line of the tool path, from 1, and its NC instruction.
    long firstLine = 0;
    std::string firstInstruction;
  };

  /// Counts `times` appearances of a name.
  void add(std::string_view name, long line, std::string_view instruction, long times = 1);

  [[nodiscard]] const std::vector<Entry>& entries() const noexcept { return entries_; }
  [[nodiscard]] long others() const noexcept { return others_; }
  /// Everything that was counted.
  [[nodiscard]] long total() const noexcept { return total_; }

 private:
  std::vector<Entry> entries_;
  TextMap<std::size_t> places_;
  long others_ = 0;
  long total_ = 0;
};

}  // namespace host
