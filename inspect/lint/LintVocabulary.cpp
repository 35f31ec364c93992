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

bool startsWithLetter(std::string_view word) {
  return !word.empty() && (word.front() < '0' || word.front() > '9');
}

}  // namespace

LintVocabulary::LintVocabulary(const TableBlocks& blocks) : hasSections_(!blocks.words.empty()) {
  std::size_t pieces = 0;
  for (const auto& section : blocks.words) pieces += section.pieces.size();
  words_.reserve(pieces / 2 + std::size(kAptWords) + lintCatalogue().words.size());
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

bool LintVocabulary::isModifier(std::string_view word) const {
  const auto all = find(word);
  return std::any_of(all.begin(), all.end(),
                     [](const Entry& entry) { return entry.kind == WordKind::Modifier; });
}

const NearWords& LintVocabulary::nearStandardWords() {
  static const NearWords words([] {
    std::vector<std::string_view> all;
    for (const std::string& word : lintCatalogue().words) {
      if (startsWithLetter(word)) all.push_back(word);
    }
    for (const AptWord& each : kAptWords) all.push_back(each.word);
    return all;
  }());
  return words;
}

std::vector<std::string_view> LintVocabulary::allWords() const {
  std::vector<std::string_view> words;
  for (const Entry& entry : words_) {
    if (words.empty() || words.back() != entry.word) words.push_back(entry.word);
  }
  return words;
}

std::vector<std::string_view> LintVocabulary::ownWords() const {
  std::vector<std::string_view> words;
  for (const Entry& entry : words_) {
    if (entry.isOwn) words.push_back(entry.word);
  }
  return words;
}

}  // namespace host
