#include <algorithm>
#include <optional>
#include <unordered_set>

#include "inspect/lint/TableRules.h"
#include "language/number/IntegerPrefix.h"

namespace host {
namespace {

using Pieces = std::deque<Token>;

bool isNumber(const Token& piece) {
  const auto code = ppword::readInteger(piece.text);
  return code && code->isWhole;
}

/// Pairs the words of a table with their codes; after a mistake it begins a new pair.
class WordReader {
 public:
  explicit WordReader(LintFindings& findings) : findings_(findings) {}

  void read(const Pieces& pieces) {
    for (std::size_t i = 0; i < pieces.size();) i += readPair(pieces, i);
  }

  /// Warns of all but the first of equal words and codes, once all were read.
  void reportDuplicates() {
    const auto text = [](const Token* word) { return word->text; };
    reportDuplicates(words_, text, LintKey::DuplicateWord);
    const auto value = [](const Token* code) { return ppword::readInteger(code->text)->value; };
    reportDuplicates(codes_, value, LintKey::DuplicateCode);
  }

 private:
  /// Returns the number of pieces that belong together.
  std::size_t readPair(const Pieces& pieces, std::size_t i) {
    const Token& word = pieces[i];
    if (isNumber(word)) {
      findings_.warn(LintKey::ShiftedPair, word);
      return 1;
    }
    words_.push_back(&word);
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
    codes_.push_back(&piece);
  }

  template <class Value>
  void reportDuplicates(std::vector<const Token*>& tokens, Value value, LintKey key) {
    std::stable_sort(tokens.begin(), tokens.end(), [&](const Token* left, const Token* right) {
      return value(left) < value(right);
    });
    for (std::size_t i = 1; i < tokens.size(); ++i) {
      if (value(tokens[i - 1]) == value(tokens[i])) findings_.warn(key, *tokens[i]);
    }
  }

  LintFindings& findings_;
  std::vector<const Token*> words_;
  std::vector<const Token*> codes_;
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
  reader.reportDuplicates();
}

}  // namespace host
