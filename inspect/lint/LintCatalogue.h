#pragma once

#include <set>
#include <string>
#include <string_view>

#include "host/system/TextHash.h"
#include "post/text/NearWords.h"

namespace host {

/// What the default catalogue knows: the same for every table, so it is read once.
struct LintCatalogue {
  /// The parameters with a type and those that its instructions refer to, each with the columns of
  /// its widest text; 0 where that is unknown.
  TextMap<std::size_t> parameters;
  /// Those with a list of words and those with a format: a table can load only these.
  std::set<std::string, std::less<>> withList;
  std::set<std::string, std::less<>> withFormat;
  /// Those with a type that has neither.
  std::set<std::string, std::less<>> typesWithoutValue;
  /// Their names in order.
  std::set<std::string, std::less<>> parameterNames;
  /// The NC instructions, those of the catalogue and those that only a listing asks for.
  std::set<std::string, std::less<>> instructions;
  /// The words of its lines and lists.
  std::set<std::string, std::less<>> words;
  /// For names that are nearly one of these.
  NearWords nearParameters;
  NearWords nearInstructions;
};

/// The module must be loaded.
[[nodiscard]] const LintCatalogue& lintCatalogue();

/// The columns of a number in a print format; 0 when it prints none.
[[nodiscard]] std::size_t widthOfFormat(std::string_view format);

}  // namespace host
