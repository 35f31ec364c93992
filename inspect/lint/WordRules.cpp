#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "inspect/lint/TableRules.h"
#include "language/number/IntegerPrefix.h"

namespace host {
namespace {

bool isNumber(const Token& piece) {
  const auto code = ppword::readInteger(piece.text);
  return code && code->isWhole;
}

/// Pairs the words of a table with their codes; after a mistake it begins a new pair.
class WordReader {
 public:
  explicit WordReader(LintFindings& findings) : findings_(findings) {}

  void read(const std::vector<Token>& pieces) {
    for (std::size_t i = 0; i < pieces.size();) i += readPair(pieces, i);
  }

 private:
  /// Gives the number of pieces that belong together.
  std::size_t readPair(const std::vector<Token>& pieces, std::size_t i) {
    const Token& word = pieces[i];
    if (isNumber(word)) {
      findings_.warn(LintKey::ShiftedPair, word);
      return 1;
    }
    if (!words_.insert(word.text).second) findings_.warn(LintKey::DuplicateWord, word);
    const bool hasNext = i + 1 < pieces.size();
    const auto code = hasNext ? ppword::readInteger(pieces[i + 1].text) : std::nullopt;
    if (code) {
      readCode(*code, pieces[i + 1]);
      return 2;
    }
    // A word with a code of its own is no code.
    if (!hasNext || (i + 2 < pieces.size() && isNumber(pieces[i + 2]))) {
      findings_.warn(LintKey::MissingCode, word);
      return 1;
    }
    findings_.warn(LintKey::CodeNotNumber, pieces[i + 1]);
    return 2;
  }

  void readCode(const ppword::IntegerPrefix& code, const Token& piece) {
    if (!code.isWhole) findings_.warn(LintKey::CodeCut, piece);
    if (!codes_.insert(code.value).second) findings_.warn(LintKey::DuplicateCode, piece);
  }

  LintFindings& findings_;
  std::unordered_set<std::string_view> words_;
  std::unordered_set<int> codes_;
};

}  // namespace

void lintWords(const TableBlocks& blocks, LintFindings& findings) {
  WordReader reader(findings);
  std::unordered_set<int> kinds;
  for (const auto& section : blocks.words) {
    if (kinds.insert(section.kind).second) {
      reader.read(section.pieces);
    } else {
      findings.warn(LintKey::UnreadSection, section.keyword);
    }
  }
}

}  // namespace host
