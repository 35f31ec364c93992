#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/ppword/lsp/Names.h"

namespace lsp {

/// What a name means in a table, in Markdown; empty when nothing is known of it.
[[nodiscard]] std::string hoverText(OpenTable& table, const Name& name);

/// What can be written at a place.
struct Proposal {
  NameKind kind;
  std::string text;
  /// What it means, in a few words; may be empty.
  std::string detail;
};

struct Completion {
  /// The proposals take the place of the bytes from `begin` to the place that was asked for.
  std::size_t begin = 0;
  std::vector<Proposal> proposals;
  /// True when there are more.
  bool isCut = false;
};

/// What begins with the letters before `offset`, of either case: names after a keyword, parameters
/// after "%" and "&", keywords after a "*" at the beginning of a line, APT words in the lines of
/// instructions, free syntaxes and lists.
[[nodiscard]] Completion completionAt(OpenTable& table, std::size_t offset);

/// A block of a table, for an outline: the bytes of the block, and those that name it.
struct Symbol {
  enum class Kind { Section, Instruction, Format, List };
  Kind kind;
  std::string name;
  std::string detail;
  std::size_t begin;
  std::size_t end;
  std::size_t nameBegin;
  std::size_t nameEnd;
};

/// The blocks of a table in its order. A block whose name cannot be read has the name of its
/// keyword.
[[nodiscard]] std::vector<Symbol> symbolsOf(OpenTable& table);

}  // namespace lsp
