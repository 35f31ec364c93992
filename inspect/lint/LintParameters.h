#pragma once

#include <set>
#include <string>
#include <string_view>

#include "host/system/TextHash.h"
#include "inspect/lint/LineReading.h"
#include "inspect/lint/TableBlocks.h"

namespace host {

/// What a document with the default catalogue and a table know of parameters.
class LintParameters {
 public:
  explicit LintParameters(const TableBlocks& blocks);

  /// True for a parameter with a type, a word list or a format, and for one that the instructions
  /// of the default catalogue refer to.
  [[nodiscard]] bool knows(std::string_view name) const { return known_.contains(name); }
  /// The parameter of the catalogue that a misspelt name most likely means; empty when none is
  /// near.
  [[nodiscard]] std::string_view nearestTo(std::string_view name) const;
  /// The columns of the widest text: of the longest word of its list, or of a number in its format.
  /// 0 for a parameter that has neither.
  [[nodiscard]] std::size_t widthOf(std::string_view name) const;

 private:
  void readCatalogue();
  void addReferences(const LineReading& reading);

  /// The widths of those that have one.
  TextMap<std::size_t> known_;
  /// Those of the catalogue, in order.
  std::set<std::string, std::less<>> catalogue_;
};

}  // namespace host
