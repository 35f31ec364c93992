#include "inspect/lint/VocabularyRules.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "inspect/lint/LintCatalogue.h"

namespace host {
namespace {

using Words = std::vector<std::string_view>;

/// False for a word that is one mistake away from too many others: a letter, or a letter and a
/// number.
bool isTelling(std::string_view word) {
  constexpr std::size_t kLong = 4;
  return word.size() >= kLong || (word.size() > 1 && word.find_first_of("0123456789") == word.npos);
}

bool holds(const Words& sorted, std::string_view word) {
  return std::binary_search(sorted.begin(), sorted.end(), word);
}

std::string meaning(std::string_view word, std::string_view meant) {
  std::string subject(word);
  if (!meant.empty()) (subject += ", perhaps ") += meant;
  return subject;
}

/// The words of all lines and lists, in order, each as often as it is there.
Words usedWords(const TableUses& uses) {
  Words words;
  for (const TableUses::Word& use : uses.words) words.push_back(use.text);
  std::sort(words.begin(), words.end());
  return words;
}

class UnknownWords {
 public:
  UnknownWords(const LintVocabulary& vocabulary, const Words& used, const TableUses& uses)
      : vocabulary_(vocabulary), used_(used), symbols_(uses.symbols) {
    std::sort(symbols_.begin(), symbols_.end());
  }

  void lint(const TableUses::Word& use, LintFindings& findings) {
    if (vocabulary_.knows(use.text) || holds(symbols_, use.text)) return;
    const auto [at, isNew] = meant_.try_emplace(use.text);
    if (isNew) at->second = meantBy(use.text);
    const std::string& meant = at->second;
    if (!vocabulary_.hasSections() && meant.empty()) return;
    findings.warn(LintKey::UnknownWord, use.offset, use.text.size(), meaning(use.text, meant));
  }

 private:
  [[nodiscard]] bool isRepeated(std::string_view word) const {
    const auto [first, last] = std::equal_range(used_.begin(), used_.end(), word);
    return last - first > 1;
  }

  [[nodiscard]] std::string meantBy(std::string_view word) const {
    if (!isTelling(word) && !vocabulary_.hasSections()) return {};
    const bool isOnce = !isRepeated(word);
    return oneMistakeFrom(word, [&](std::string_view other) {
      return vocabulary_.knows(other) || (isOnce && isRepeated(other));
    });
  }

  const LintVocabulary& vocabulary_;
  const Words& used_;
  Words symbols_;
  /// What each unknown word so far most likely means.
  std::unordered_map<std::string_view, std::string> meant_;
};

/// Warns of the words of a section that nothing uses.
void lintSection(const TableBlocks::WordSection& section, const LintVocabulary& vocabulary,
                 const Words& used, LintFindings& findings) {
  const auto isMeant = [&](std::string_view other) {
    return !vocabulary.isOwn(other) && (vocabulary.isStandard(other) || holds(used, other));
  };
  std::vector<const Token*> unused;
  for (const Token& piece : section.pieces) {
    const std::string_view word = piece.text;
    const bool isUsed = holds(used, word) || lintCatalogue().words.contains(word);
    if (isUsed || !vocabulary.isOwn(word)) continue;
    const bool isClear = vocabulary.isStandard(word) || word.size() < 2;
    const std::string meant = isClear ? "" : oneMistakeFrom(word, isMeant);
    if (meant.empty()) {
      unused.push_back(&piece);
    } else {
      findings.warn(LintKey::MisspeltWord, piece.offset, word.size(), meaning(word, meant));
    }
  }
  if (unused.empty()) return;
  std::string subject(unused.front()->text);
  if (unused.size() > 1) subject += " and " + std::to_string(unused.size() - 1) + " more";
  findings.warn(LintKey::UnusedWords, unused.front()->offset, unused.front()->text.size(), subject);
}

}  // namespace

void lintVocabulary(const TableBlocks& blocks, const LintVocabulary& vocabulary,
                    const TableUses& uses, LintFindings& findings) {
  const Words used = usedWords(uses);
  UnknownWords unknown(vocabulary, used, uses);
  for (const TableUses::Word& use : uses.words) unknown.lint(use, findings);
  for (const auto& section : blocks.words) lintSection(section, vocabulary, used, findings);
}

}  // namespace host
