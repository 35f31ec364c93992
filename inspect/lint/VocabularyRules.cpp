#include "inspect/lint/VocabularyRules.h"

#include <algorithm>
#include <optional>
#include <string>

#include "inspect/lint/LintCatalogue.h"
#include "post/text/NearWords.h"

namespace host {
namespace {

using Words = std::vector<std::string_view>;

/// Only so many of a table's own words are compared with misspelt ones, which takes memory for each
/// of their letters.
constexpr std::size_t kMostNear = 20'000;

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
      : vocabulary_(vocabulary), uses_(uses), findings_(findings) {}

  void check(const Token& use) {
    const std::string_view word = use.text;
    if (uses_.isSymbol(word)) return;
    std::string_view meant;
    if (isTelling(word) || vocabulary_.hasSections()) {
      const bool isOnce = uses_.count(word) == 1;
      meant = near(word, [&](std::string_view other) {
        // Words with other numbers are different on purpose.
        return withoutNumber(other) != withoutNumber(word) &&
               (vocabulary_.knows(other) || (isOnce && uses_.count(other) > 1));
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
  [[nodiscard]] bool isUnused(std::string_view word) const {
    return vocabulary_.isOwn(word) && uses_.count(word) == 0 &&
           !lintCatalogue().words.contains(word);
  }

  /// The word that one of a section most likely means: one that is used, or standard, and in no
  /// section itself.
  [[nodiscard]] std::string_view meantBy(std::string_view word) {
    if (vocabulary_.isStandard(word) || word.size() < 2) return {};
    return near(word, [&](std::string_view other) {
      return !vocabulary_.isOwn(other) && (vocabulary_.isStandard(other) || uses_.count(other) > 0);
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
      const Words used = uses_.words();
      all.insert(all.end(), used.begin(), used.end());
      all.resize(std::min(all.size(), kMostNear));
      near_.emplace(std::move(all));
    }
    return near_->near(word, isMeant);
  }

  const LintVocabulary& vocabulary_;
  const TableUses& uses_;
  LintFindings& findings_;
  /// Of the table, made for the first word that is looked for.
  std::optional<NearWords> near_;
};

}  // namespace

void TableUses::addWord(std::string_view word, std::size_t offset, bool isKnown) {
  auto known = counts_.find(word);
  if (known == counts_.end()) known = counts_.emplace(placed(word, offset), 0).first;
  ++known->second;
  if (!isKnown) unknown_.push_back({known->first, offset});
}

void TableUses::addParameter(std::string_view name, bool isComputed) {
  auto known = parameters_.find(name);
  if (known == parameters_.end()) known = parameters_.emplace(name, Printing()).first;
  (isComputed ? known->second.isComputed : known->second.isPrinted) = true;
}

long TableUses::count(std::string_view word) const {
  const auto known = counts_.find(word);
  return known == counts_.end() ? 0 : known->second;
}

std::vector<std::string_view> TableUses::words() const {
  Words words;
  words.reserve(counts_.size());
  for (const auto& [word, count] : counts_) words.push_back(word);
  std::sort(words.begin(), words.end());
  return words;
}

/// The word where it is in the table; a copy of one that a line has from two places.
std::string_view TableUses::placed(std::string_view word, std::size_t offset) {
  const std::string_view there = table_.substr(std::min(offset, table_.size()), word.size());
  return there == word ? there : std::string_view(owned_.emplace_back(word));
}

void lintVocabulary(const TableBlocks& blocks, const LintVocabulary& vocabulary,
                    const TableUses& uses, LintFindings& findings) {
  WordCheck check(vocabulary, uses, findings);
  for (const Token& use : uses.unknown()) check.check(use);
  for (const auto& section : blocks.words) check.check(section);
}

}  // namespace host
