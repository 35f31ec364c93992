#include <algorithm>

#include "tools/ppword/lsp/Features.h"

namespace lsp {
namespace {

using host::TableBlocks;
using host::Token;
using Named = TableBlocks::Named;

std::size_t endOf(const Token& token) { return token.offset + token.text.size(); }

Symbol symbolOf(Symbol::Kind kind, const Named& block, std::string detail) {
  const Token& name = block.name.text.empty() ? block.keyword : block.name;
  const std::size_t end = std::max(block.end, endOf(name));
  return {
      kind,       std::string(name.text), std::move(detail), block.keyword.offset, end, name.offset,
      endOf(name)};
}

Symbol sectionOf(const Token& keyword, std::size_t end, std::string detail) {
  return {Symbol::Kind::Section, std::string(keyword.text),     std::move(detail),
          keyword.offset,        std::max(end, endOf(keyword)), keyword.offset,
          endOf(keyword)};
}

std::string detailOf(const std::vector<TableBlocks::Part>& body) {
  const auto sequences = std::count_if(body.begin(), body.end(), [](const auto& part) {
    return part.kind == TableBlocks::Part::Kind::Sequence;
  });
  return sequences > 1 ? std::to_string(sequences) + " sequences" : "";
}

std::string shortText(const std::vector<Token>& values) {
  constexpr std::size_t kMostCharacters = 60;
  std::string text;
  for (const Token& value : values) {
    (text += text.empty() ? "" : ",") += value.text;
    if (text.size() > kMostCharacters) return text.substr(0, kMostCharacters) + "...";
  }
  return text;
}

void addSections(const TableBlocks& blocks, std::vector<Symbol>& symbols) {
  for (const auto& section : blocks.words) {
    const std::size_t end = section.pieces.empty() ? 0 : endOf(section.pieces.back());
    symbols.push_back(sectionOf(section.keyword, end, ""));
  }
  for (const Token& keyword : blocks.syntaxSections) symbols.push_back(sectionOf(keyword, 0, ""));
}

void addValues(Symbol::Kind kind, const std::deque<Named>& blocks, std::vector<Symbol>& symbols) {
  for (const Named& block : blocks)
    symbols.push_back(symbolOf(kind, block, shortText(block.values)));
}

void addCommands(const TableBlocks& blocks, std::vector<Symbol>& symbols) {
  for (std::size_t i = 0; i < blocks.commands.size(); ++i) {
    symbols.push_back(
        symbolOf(Symbol::Kind::Instruction, blocks.commands[i], detailOf(blocks.bodies[i])));
  }
}

}  // namespace

std::vector<Symbol> symbolsOf(OpenTable& table) {
  const TableBlocks& blocks = table.blocks();
  std::vector<Symbol> symbols;
  addSections(blocks, symbols);
  addCommands(blocks, symbols);
  addValues(Symbol::Kind::Format, blocks.formats, symbols);
  addValues(Symbol::Kind::List, blocks.lists, symbols);
  std::sort(symbols.begin(), symbols.end(),
            [](const Symbol& left, const Symbol& right) { return left.begin < right.begin; });
  return symbols;
}

}  // namespace lsp
