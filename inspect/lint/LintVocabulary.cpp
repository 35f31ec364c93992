#include "inspect/lint/LintVocabulary.h"

#include <algorithm>
#include <iterator>

#include "inspect/lint/LintCatalogue.h"
#include "language/table/Keywords.h"

namespace host {
namespace {

struct AptWord {
  std::string_view word;
  WordKind kind;
};

constexpr AptWord kAptWords[] = {
#define APT_WORD(name, kind) {#name, WordKind::kind},
#include "inspect/lint/AptWords.def"
#undef APT_WORD
};

/// What the words of a section are for, by its kind from 1.
constexpr WordKind kSectionKinds[] = {WordKind::Major, WordKind::Text, WordKind::Major,
                                      WordKind::Minor};
static_assert(std::size(kSectionKinds) == ppword::kWordKinds);

constexpr auto byWord = [](const auto& left, const auto& right) { return left.word < right.word; };

/// Tries the words that one mistake makes of a word, in place.
class Mistakes {
 public:
  Mistakes(std::string_view word, const std::function<bool(std::string_view)>& isKnown)
      : word_(word), isKnown_(isKnown) {}

  [[nodiscard]] std::string find() {
    std::string& meant = meant_;
    meant.assign(word_);
    for (char& c : meant) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
    const bool isFound = (meant != word_ && isKnown_(meant)) || swapped() || changed();
    return isFound ? std::move(meant) : std::string();
  }

 private:
  [[nodiscard]] bool isMeant() const { return meant_ != word_ && isKnown_(meant_); }

  bool swapped() {
    for (std::size_t at = 0; at + 1 < meant_.size(); ++at) {
      std::swap(meant_[at], meant_[at + 1]);
      if (isMeant()) return true;
      std::swap(meant_[at], meant_[at + 1]);
    }
    return false;
  }

  /// Puts a letter in, replaces one or leaves it out, from left to right.
  bool changed() {
    for (std::size_t at = 0; at <= meant_.size(); ++at) {
      meant_.insert(at, 1, ' ');
      if (letterAt(at)) return true;
      meant_.erase(at, 1);
      if (at == meant_.size()) break;
      const char own = meant_[at];
      if (letterAt(at)) return true;
      meant_.erase(at, 1);
      if (isMeant()) return true;
      meant_.insert(at, 1, own);
    }
    return false;
  }

  bool letterAt(std::size_t at) {
    constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
    return std::any_of(kLetters.begin(), kLetters.end(), [&](char letter) {
      meant_[at] = letter;
      return isMeant();
    });
  }

  std::string_view word_;
  const std::function<bool(std::string_view)>& isKnown_;
  std::string meant_;
};

bool startsWithLetter(std::string_view word) {
  return !word.empty() && (word.front() < '0' || word.front() > '9');
}

}  // namespace

LintVocabulary::LintVocabulary(const TableBlocks& blocks) : hasSections_(!blocks.words.empty()) {
  for (const auto& section : blocks.words) {
    const WordKind kind = kSectionKinds[section.kind - 1];
    for (const Token& piece : section.pieces) {
      if (startsWithLetter(piece.text)) words_.push_back({piece.text, kind, true});
    }
  }
  for (const auto& [word, kind] : kAptWords) words_.push_back({word, kind, false});
  for (const std::string& word : lintCatalogue().words) {
    words_.push_back({word, WordKind::Minor, false});
  }
  std::stable_sort(words_.begin(), words_.end(), byWord);
}

std::span<const LintVocabulary::Entry> LintVocabulary::find(std::string_view word) const {
  const Entry key{word, WordKind::Minor, false};
  const auto [first, last] = std::equal_range(words_.begin(), words_.end(), key, byWord);
  return {first, last};
}

bool LintVocabulary::isStandard(std::string_view word) const {
  const auto all = find(word);
  return !all.empty() && !all.back().isOwn;
}

bool LintVocabulary::isOwn(std::string_view word) const {
  const auto all = find(word);
  return !all.empty() && all.front().isOwn;
}

std::optional<WordKind> LintVocabulary::kindOf(std::string_view word) const {
  const auto all = find(word);
  return all.empty() ? std::nullopt : std::optional(all.front().kind);
}

std::string oneMistakeFrom(std::string_view word,
                           const std::function<bool(std::string_view)>& isKnown) {
  constexpr std::size_t kLongest = 64;
  return word.size() > kLongest ? std::string() : Mistakes(word, isKnown).find();
}

}  // namespace host
