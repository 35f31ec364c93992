#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/ppword/Contents.h"
#include "tools/ppword/ParameterList.h"

namespace lsp {

/// What a new document has, and what is known of every parameter: the same for every table.
struct Catalogue {
  /// Its instructions, lists and formats.
  Contents contents;
  /// The known parameters, then those that only a new document has.
  std::vector<ParameterEntry> parameters;

  /// Null for a name that it does not have.
  [[nodiscard]] const InstructionEntry* instruction(std::string_view name) const;
  [[nodiscard]] const ParameterEntry* parameter(std::string_view name) const;
};

[[nodiscard]] const Catalogue& catalogue();

/// What a known parameter means, in the words of the manual without its quotes; empty for a name
/// that is not known.
[[nodiscard]] std::string parameterMeaning(std::string_view name);

}  // namespace lsp
