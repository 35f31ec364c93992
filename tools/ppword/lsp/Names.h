#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "tools/ppword/lsp/OpenTable.h"

namespace lsp {

enum class NameKind { Parameter, Instruction, Word, Keyword };

/// A name of a table, and where it is.
struct Name {
  NameKind kind;
  std::string_view text;
  std::size_t offset;
};

/// The name at an offset or directly before it; nothing when there is none.
[[nodiscard]] std::optional<Name> nameAt(std::string_view text, std::size_t offset);

/// What a keyword is for; empty for a text that is not one.
[[nodiscard]] std::string_view keywordMeaning(std::string_view keyword);

/// A place of a name: one that defines it, or one that uses it.
struct NamePlace {
  std::size_t offset;
  std::size_t size;
  bool isDefinition;
};

/// All places of a name of its kind, in the order of the table. The blocks of commands, lists and
/// formats and the entries of word sections define names.
[[nodiscard]] std::vector<NamePlace> placesOf(OpenTable& table, const Name& name);

}  // namespace lsp
