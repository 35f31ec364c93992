#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/ppword/Contents.h"
#include "tools/ppword/ParameterList.h"

namespace lsp {

/// What a new document has, and what is known of every parameter: the same for every table.
struct Catalogue {
  Contents contents;
  std::vector<ParameterEntry> parameters;

  /// Null for a name that it does not have.
  [[nodiscard]] const InstructionEntry* instruction(std::string_view name) const;
  [[nodiscard]] const ParameterEntry* parameter(std::string_view name) const;
};

[[nodiscard]] const Catalogue& catalogue();

/// What a keyword is for; empty for a text that is not one.
[[nodiscard]] std::string_view keywordMeaning(std::string_view keyword);

/// What a known parameter means; empty for another one.
[[nodiscard]] std::string parameterMeaning(std::string_view name);

}  // namespace lsp
