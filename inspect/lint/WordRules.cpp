#include "inspect/lint/WordRules.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <unordered_map>
#include <unordered_set>

namespace host {
namespace {

struct Code {
  int number;
  bool isWhole;
};

/// The code that a piece is read as: the integer that it begins with.
std::optional<Code> codeOf(std::string_view piece) {
  if (piece.starts_with('+') && !piece.substr(1).starts_with('-')) piece.remove_prefix(1);
  Code code{};
  const char* const end = piece.data() + piece.size();
  const auto read = std::from_chars(piece.data(), end, code.number);
  if (read.ec != std::errc()) return std::nullopt;
  code.isWhole = read.ptr == end;
  return code;
}

bool isNumber(const Token& piece) {
  const auto code = codeOf(piece.text);
  return code && code->isWhole;
}

/// Pairs the words of a table with their codes; behind a mistake it begins a new pair.
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
    if (hasNext && codeOf(pieces[i + 1].text)) {
      readCode(pieces[i + 1]);
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

  void readCode(const Token& piece) {
    const Code code = *codeOf(piece.text);
    if (!code.isWhole) findings_.warn(LintKey::CodeCut, piece);
    if (!codes_.insert(code.number).second) findings_.warn(LintKey::DuplicateCode, piece);
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
