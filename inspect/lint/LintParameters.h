#pragma once

#include <string_view>

#include "host/system/TextHash.h"
#include "inspect/lint/TableBlocks.h"

namespace host {

/// What a document with the default catalogue and a table know of parameters.
class LintParameters {
 public:
  explicit LintParameters(const TableBlocks& blocks);

  /// True for a parameter with a type, a word list or a format, and for one that the instructions
  /// of the default catalogue refer to.
  [[nodiscard]] bool knows(std::string_view name) const;
  /// The parameter of the catalogue that a misspelt name most likely means; empty when none is
  /// near.
  [[nodiscard]] static std::string_view nearestTo(std::string_view name);
  /// The columns of the widest text: of the longest word of its list, or of a number in its format.
  /// 0 for a parameter that has neither.
  [[nodiscard]] std::size_t widthOf(std::string_view name) const;

 private:
  /// The widths of those that the table has a list or a format for.
  TextMap<std::size_t> own_;
};

}  // namespace host
