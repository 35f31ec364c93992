#include "tools/ppword/lsp/Names.h"

#include <algorithm>

#include "inspect/lint/LineWords.h"
#include "inspect/lint/SyntaxLineReader.h"
#include "language/table/Keywords.h"
#include "language/table/TableSource.h"

namespace lsp {
namespace {

using host::LineReading;
using host::TableBlocks;
using host::TableLine;
using host::Token;
using Named = TableBlocks::Named;

NameKind kindOf(std::string_view name, char before) {
  if (before == '%' || before == '&') return NameKind::Parameter;
  if (name.starts_with(ppword::kCommandPrefix)) return NameKind::Instruction;
  return name.starts_with(ppword::kParameterPrefix) ? NameKind::Parameter : NameKind::Word;
}

/// What a name may begin after.
constexpr std::string_view kMarks = "*%&";

struct WordAround {
  std::string_view text;
  std::size_t offset;
};

/// The letters before and after an offset, not many more than a word may have.
WordAround wordAround(std::string_view text, std::size_t offset) {
  const auto isPart = [text](std::size_t at) { return host::isWordCharacter(text[at]); };
  std::size_t begin = offset;
  while (begin > 0 && isPart(begin - 1) && offset - begin <= ppword::kMostCharacters) --begin;
  std::size_t end = offset;
  while (end < text.size() && isPart(end) && end - offset <= ppword::kMostCharacters) ++end;
  return {text.substr(begin, end - begin), begin};
}

/// Gathers the places of a name.
class PlaceSearch {
 public:
  PlaceSearch(const TableBlocks& blocks, const Name& name) : blocks_(blocks), name_(name) {}

  std::vector<NamePlace> search() && {
    if (name_.kind == NameKind::Instruction) {
      addNames(blocks_.commands, true);
      addNames(blocks_.inserts, false);
    } else if (name_.kind == NameKind::Parameter) {
      addNames(blocks_.formats, true);
      addNames(blocks_.lists, true);
      readLines(&PlaceSearch::addReferences);
    } else if (name_.kind == NameKind::Word) {
      for (const auto& section : blocks_.words) addTokens(section.pieces, true);
      for (const Named& list : blocks_.lists) addTokens(list.values, false);
      readLines(&PlaceSearch::addWords);
    }
    std::sort(places_.begin(), places_.end(), [](const NamePlace& left, const NamePlace& right) {
      return left.offset < right.offset;
    });
    return std::move(places_);
  }

 private:
  void add(const Token& token, bool isDefinition) {
    if (token.text == name_.text)
      places_.push_back({token.offset, token.text.size(), isDefinition});
  }
  template <class Blocks>
  void addNames(const Blocks& blocks, bool isDefinition) {
    for (const auto& block : blocks) add(block.name, isDefinition);
  }
  template <class Tokens>
  void addTokens(const Tokens& tokens, bool isDefinition) {
    for (const Token& token : tokens) add(token, isDefinition);
  }

  using AddLine = void (PlaceSearch::*)(const TableLine& line, const LineReading& reading);

  void readLines(AddLine addLine) {
    for (const TableLine& line : blocks_.lines) {
      if (line.text.find(name_.text) == std::string::npos) continue;
      (this->*addLine)(line, reader_.read(line.text));
    }
  }

  void addReferences(const TableLine& line, const LineReading& reading) {
    for (const host::LineReference& reference : reading.references) {
      if (reference.isExpression || reference.parameter != name_.text) continue;
      const auto at = static_cast<std::size_t>(reference.parameter.data() - reading.text.data());
      addUse(line, reading, at);
    }
  }
  void addWords(const TableLine& line, const LineReading& reading) {
    for (const host::LineWord& word : host::wordsOf(reading)) {
      if (word.text == name_.text) addUse(line, reading, word.at);
    }
  }
  /// `at` is a place of the reading's text.
  void addUse(const TableLine& line, const LineReading& reading, std::size_t at) {
    places_.push_back({line.offsetOf(reading.lineOffset(at)), name_.text.size(), false});
  }

  const TableBlocks& blocks_;
  const Name& name_;
  host::SyntaxLineReader reader_;
  std::vector<NamePlace> places_;
};

}  // namespace

std::optional<Name> nameAt(std::string_view text, std::size_t offset) {
  offset = std::min(offset, text.size());
  if (offset < text.size() && kMarks.find(text[offset]) != kMarks.npos) ++offset;
  const auto [name, begin] = wordAround(text, offset);
  if (name.empty() || name.size() > ppword::kMostCharacters) return std::nullopt;
  const char before = begin > 0 ? text[begin - 1] : ' ';
  if (before == '*') {
    return Name{NameKind::Keyword, text.substr(begin - 1, name.size() + 1), begin - 1};
  }
  if (name.front() >= '0' && name.front() <= '9') return std::nullopt;
  return Name{kindOf(name, before), name, begin};
}

std::vector<NamePlace> placesOf(OpenTable& table, const Name& name) {
  return PlaceSearch(table.blocks(), name).search();
}

}  // namespace lsp
