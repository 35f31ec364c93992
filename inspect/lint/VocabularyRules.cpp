#include "inspect/lint/VocabularyRules.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include "inspect/lint/LintCatalogue.h"
#include "post/text/NearWords.h"

namespace host {
namespace {

using Words = std::vector<std::string_view>;

/// False for a word that is one mistake away from too many others: a letter, or a letter and a
/// number.
bool isTelling(std::string_view word) {
  constexpr std::size_t kLong = 4;
  return word.size() >= kLong || (word.size() > 1 && word.find_first_of("0123456789") == word.npos);
}

std::string meaning(std::string_view word, std::string_view meant) {
  std::string subject(word);
  if (!meant.empty()) (subject += ", perhaps ") += meant;
  return subject;
}

/// Compares the words that a table uses with the vocabulary.
class WordCheck {
 public:
  WordCheck(const LintVocabulary& vocabulary, const TableUses& uses, LintFindings& findings)
      : vocabulary_(vocabulary), symbols_(uses.symbols), findings_(findings) {
    for (const TableUses::Word& use : uses.words) used_.push_back(use.text);
    std::sort(used_.begin(), used_.end());
    std::sort(symbols_.begin(), symbols_.end());
  }

  void check(const TableUses::Word& use) {
    const std::string_view word = use.text;
    if (vocabulary_.knows(word) || holds(symbols_, word)) return;
    std::string_view meant;
    if (isTelling(word) || vocabulary_.hasSections()) {
      const bool isOnce = count(word) == 1;
      meant = near(word, [&](std::string_view other) {
        // Words with other numbers are different on purpose.
        return withoutNumber(other) != withoutNumber(word) &&
               (vocabulary_.knows(other) || (isOnce && count(other) > 1));
      });
    }
    if (meant.empty() && !vocabulary_.hasSections()) return;
    findings_.warn(LintKey::UnknownWord, use.offset, word.size(), meaning(word, meant), meant);
  }

  void check(const TableBlocks::WordSection& section) {
    std::vector<const Token*> unused;
    for (const Token& piece : section.pieces) {
      if (!isUnused(piece.text)) continue;
      const std::string_view meant = meantBy(piece.text);
      if (meant.empty()) {
        unused.push_back(&piece);
      } else {
        findings_.warn(LintKey::MisspeltWord, piece.offset, piece.text.size(),
                       meaning(piece.text, meant), meant);
      }
    }
    if (!unused.empty()) note(unused);
  }

 private:
  [[nodiscard]] static bool holds(const Words& sorted, std::string_view word) {
    return std::binary_search(sorted.begin(), sorted.end(), word);
  }
  [[nodiscard]] long count(std::string_view word) const {
    const auto [first, last] = std::equal_range(used_.begin(), used_.end(), word);
    return last - first;
  }

  [[nodiscard]] bool isUnused(std::string_view word) const {
    return vocabulary_.isOwn(word) && !holds(used_, word) && !lintCatalogue().words.contains(word);
  }

  /// The word that one of a section most likely means: one that is used, or standard, and in no
  /// section itself.
  [[nodiscard]] std::string_view meantBy(std::string_view word) {
    if (vocabulary_.isStandard(word) || word.size() < 2) return {};
    return near(word, [&](std::string_view other) {
      return !vocabulary_.isOwn(other) && (vocabulary_.isStandard(other) || holds(used_, other));
    });
  }

  void note(const std::vector<const Token*>& unused) {
    const Token& first = *unused.front();
    std::string subject(first.text);
    if (unused.size() > 1) subject += " and " + std::to_string(unused.size() - 1) + " more";
    findings_.warn(LintKey::UnusedWords, first.offset, first.text.size(), subject);
  }

  [[nodiscard]] std::string_view near(std::string_view word,
                                      const std::function<bool(std::string_view)>& isMeant) {
    const auto standard = LintVocabulary::nearStandardWords().near(word, isMeant);
    if (!standard.empty()) return standard;
    if (!near_) {
      Words all = vocabulary_.ownWords();
      std::unique_copy(used_.begin(), used_.end(), std::back_inserter(all));
      near_.emplace(std::move(all));
    }
    return near_->near(word, isMeant);
  }

  const LintVocabulary& vocabulary_;
  /// In order, each as often as it is there.
  Words used_;
  Words symbols_;
  LintFindings& findings_;
  /// Of the table, made for the first word that is looked for.
  std::optional<NearWords> near_;
};

}  // namespace

void lintVocabulary(const TableBlocks& blocks, const LintVocabulary& vocabulary,
                    const TableUses& uses, LintFindings& findings) {
  WordCheck check(vocabulary, uses, findings);
  for (const TableUses::Word& use : uses.words) check.check(use);
  for (const auto& section : blocks.words) check.check(section);
}

}  // namespace host
