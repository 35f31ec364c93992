#include <unordered_set>

#include "inspect/lint/TableRules.h"

namespace host {
namespace {

using Named = TableBlocks::Named;
using Names = std::unordered_set<std::string_view>;

Names lintNamed(const std::deque<Named>& blocks, LintFindings& findings) {
  Names names;
  for (const Named& block : blocks) {
    if (block.name.text.empty()) {
      findings.warn(LintKey::UnreadName, block.keyword);
    } else if (!names.insert(block.name.text).second) {
      findings.warn(LintKey::DuplicateName, block.name);
    }
  }
  return names;
}

void lintInserts(const std::deque<TableBlocks::Insert>& inserts, const Names& commands,
                 LintFindings& findings) {
  for (const TableBlocks::Insert& insert : inserts) {
    if (insert.name.text.empty()) {
      findings.warn(LintKey::UnreadName, insert.keyword);
    } else if (!commands.contains(insert.name.text)) {
      findings.warn(LintKey::UnknownInsert, insert.name);
    }
  }
}

}  // namespace

void lintBlocks(const TableBlocks& blocks, LintFindings& findings) {
  lintInserts(blocks.inserts, lintNamed(blocks.commands, findings), findings);
  lintNamed(blocks.lists, findings);
  lintNamed(blocks.formats, findings);
  for (const Token& keyword : blocks.mixedSequences) {
    findings.warn(LintKey::MixedSequence, keyword);
  }
  for (const Token& line : blocks.lostLines) findings.warn(LintKey::LostLine, line);
  for (std::size_t i = 1; i < blocks.syntaxSections.size(); ++i) {
    findings.warn(LintKey::UnreadSection, blocks.syntaxSections[i]);
  }
}

}  // namespace host
