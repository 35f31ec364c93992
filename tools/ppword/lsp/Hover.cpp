#include <algorithm>

#include "inspect/lint/LintCatalogue.h"
#include "inspect/lint/LintVocabulary.h"
#include "tools/ppword/lsp/Catalogue.h"
#include "tools/ppword/lsp/Features.h"

namespace lsp {
namespace {

using host::TableBlocks;
using host::Token;
using Named = TableBlocks::Named;

// More names, or lines, are not shown.
constexpr std::size_t kMostShown = 20;

/// A text between the marks of code.
std::string code(std::string_view text) {
  // A text with a backquote needs longer marks.
  const std::string mark = text.find('`') == text.npos ? "`" : "`` ";
  return mark + std::string(text) + std::string(mark.rbegin(), mark.rend());
}

std::string lineOf(const OpenTable& table, std::size_t offset) {
  const auto end = table.text().begin() + static_cast<std::ptrdiff_t>(offset);
  return "line " + std::to_string(std::count(table.text().begin(), end, '\n') + 1);
}

std::string joined(const std::vector<Token>& values) {
  std::string text;
  for (std::size_t i = 0; i < std::min(values.size(), kMostShown); ++i) {
    (text += i == 0 ? "" : ",") += values[i].text;
  }
  return values.size() > kMostShown ? text + ",..." : text;
}

// --- Parameters

std::string originText(const host::ParameterRow& row) {
  std::string text = "\n\nType: " + std::string(host::typeName(row.type));
  if (!row.unit.empty()) (text += "; unit: ") += row.unit;
  (text += "; from: ") += host::sourceName(row.source);
  if (!row.job.empty()) (text += "; in a job: ") += code(row.job);
  return text;
}

/// The last block of a name, which counts.
const Named* lastOf(const std::deque<Named>& blocks, std::string_view name) {
  const auto found = std::find_if(blocks.rbegin(), blocks.rend(),
                                  [name](const Named& block) { return block.name.text == name; });
  return found == blocks.rend() ? nullptr : &*found;
}

std::string ownText(const OpenTable& table, const Named& block, bool isList) {
  const bool isWhole = isList || block.values.empty();
  const std::string value = isWhole ? joined(block.values) : std::string(block.values.back().text);
  return (value.empty() ? "empty" : code(value)) + " (this table, " +
         lineOf(table, block.name.offset) + ')';
}

std::string valueText(const OpenTable& table, const std::string& what,
                      const std::deque<Named>& blocks, std::string_view name,
                      std::string_view known) {
  const std::string begin = "\n\n" + what + ": ";
  const Named* const block = lastOf(blocks, name);
  if (block != nullptr) return begin + ownText(table, *block, what == "List");
  return known.empty() ? "" : begin + code(known) + " (default catalogue)";
}

/// The words of a list of the catalogue; empty when the parameter has none.
std::string listText(const ParameterEntry& entry) {
  std::string list;
  if (!entry.list) return list;
  for (const std::string& value : *entry.list) list += (list.empty() ? "" : ",") + value;
  return list;
}

std::string parameterText(OpenTable& table, std::string_view name) {
  const ParameterEntry* const entry = catalogue().parameter(name);
  const TableBlocks& blocks = table.blocks();
  const ParameterEntry known = entry != nullptr ? *entry : ParameterEntry();
  std::string values = valueText(table, "Format", blocks.formats, name, known.format.value_or(""));
  values += valueText(table, "List", blocks.lists, name, listText(known));
  const std::string text = "**" + std::string(name) + "**";
  if (entry == nullptr && values.empty()) {
    return text + ": neither the default catalogue nor this table has it.";
  }
  const std::string meaning = parameterMeaning(name);
  return text + (meaning.empty() ? "" : ": " + meaning) +
         (known.known != nullptr ? originText(*known.known->row) : "") + values;
}

// --- Instructions

bool inserts(const TableBlocks& blocks, const std::vector<TableBlocks::Part>& body,
             std::string_view name) {
  return std::any_of(body.begin(), body.end(), [&](const TableBlocks::Part& part) {
    return part.kind == TableBlocks::Part::Kind::Insert &&
           blocks.inserts[part.index].name.text == name;
  });
}

std::string usesText(OpenTable& table, std::string_view name) {
  const TableBlocks& blocks = table.blocks();
  std::string text;
  std::size_t count = 0;
  for (std::size_t i = 0; i < blocks.commands.size(); ++i) {
    if (!inserts(blocks, blocks.bodies[i], name) || ++count > kMostShown) continue;
    const Token& user = blocks.commands[i].name;
    text += (text.empty() ? "\n\nInserted by " : ", ") + std::string(user.text) + " (" +
            lineOf(table, user.offset) + ')';
  }
  return count > kMostShown ? text + " and " + std::to_string(count - kMostShown) + " more" : text;
}

std::string catalogueText(std::string_view name) {
  const InstructionEntry* const entry = catalogue().instruction(name);
  if (entry == nullptr || !entry->lines) return {};
  if (entry->lines->empty()) return "\n\nThe default catalogue has no lines for it.";
  std::string text = "\n\nDefault catalogue:\n```apt\n";
  for (const std::string& line : *entry->lines) (text += line) += '\n';
  return text + "```";
}

std::string instructionText(OpenTable& table, std::string_view name) {
  const auto& commands = table.blocks().commands;
  const auto own = std::find_if(commands.begin(), commands.end(),
                                [name](const Named& each) { return each.name.text == name; });
  std::string text = "**" + std::string(name) + "**";
  const bool isKnown = host::lintCatalogue().instructions.contains(name);
  text += isKnown ? ": an NC instruction of jobs and listings"
                  : ": an NC command, which only inserts and jobs that name it use";
  if (own != commands.end()) text += "\n\nThis table: " + lineOf(table, own->name.offset);
  return text + usesText(table, name) + catalogueText(name);
}

// --- Words

/// Of a word section: the code after a word.
std::string sectionText(const OpenTable& table, const TableBlocks::WordSection& section,
                        std::string_view word) {
  for (std::size_t i = 0; i < section.pieces.size(); ++i) {
    if (section.pieces[i].text != word) continue;
    std::string text = ": " + std::string(kindName(section.kind));
    if (i + 1 < section.pieces.size()) (text += ", code ") += section.pieces[i + 1].text;
    return text + "\n\nThis table: " + lineOf(table, section.pieces[i].offset);
  }
  return {};
}

std::string wordText(OpenTable& table, std::string_view word) {
  for (const auto& section : table.blocks().words) {
    const std::string text = sectionText(table, section, word);
    if (!text.empty()) return "**" + std::string(word) + "**" + text;
  }
  const host::LintVocabulary vocabulary(table.blocks());
  if (!vocabulary.isStandard(word)) return {};
  const bool isMinor = vocabulary.kindOf(word) == host::WordKind::Minor;
  return "**" + std::string(word) + "**: a " + (isMinor ? "minor" : "major") +
         " word of standard APT or of the default catalogue; no word section of this table has it";
}

std::string keywordText(std::string_view keyword) {
  const std::string_view meaning = keywordMeaning(keyword);
  return meaning.empty() ? "" : code(keyword) + ": " + std::string(meaning);
}

}  // namespace

std::string hoverText(OpenTable& table, const Name& name) {
  switch (name.kind) {
    case NameKind::Parameter:
      return parameterText(table, name.text);
    case NameKind::Instruction:
      return instructionText(table, name.text);
    case NameKind::Word:
      return wordText(table, name.text);
    default:
      return keywordText(name.text);
  }
}

}  // namespace lsp
