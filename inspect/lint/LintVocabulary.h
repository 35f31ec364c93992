#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/lint/TableBlocks.h"
#include "post/text/NearWords.h"

namespace host {

/// What a word is for. Major and Modifier begin a statement; a modifier needs no "/"
/// after it.
enum class WordKind { Major, Modifier, Text, Minor };

/// The words that a table may use: those of its word sections, those of the default catalogue and
/// those of standard APT (AptWords.def).
class LintVocabulary {
 public:
  explicit LintVocabulary(const TableBlocks& blocks);

  /// False for a table that does not say which words its machine has.
  [[nodiscard]] bool hasSections() const noexcept { return hasSections_; }
  [[nodiscard]] bool knows(std::string_view word) const { return !find(word).empty(); }
  /// True for a word of standard APT or of the default catalogue.
  [[nodiscard]] bool isStandard(std::string_view word) const;
  /// True for a word of the table's sections.
  [[nodiscard]] bool isOwn(std::string_view word) const;
  /// The words of standard APT and of the default catalogue, for words that are nearly one of them.
  [[nodiscard]] static const NearWords& nearStandardWords();
  /// All words in order, each once.
  [[nodiscard]] std::vector<std::string_view> allWords() const;
  /// The words of the table's sections, some of them twice.
  [[nodiscard]] std::vector<std::string_view> ownWords() const;
  /// True for a word of standard APT that begins a statement and needs no "/" after it.
  [[nodiscard]] bool isModifier(std::string_view word) const;
  /// What a word is for: what the table says before anything else.
  [[nodiscard]] std::optional<WordKind> kindOf(std::string_view word) const;

 private:
  struct Entry {
    std::string_view word;
    WordKind kind;
    bool isOwn;
  };

  /// Those of a word, its own one first.
  [[nodiscard]] std::span<const Entry> find(std::string_view word) const;

  /// In order of the words.
  std::vector<Entry> words_;
  bool hasSections_;
};

}  // namespace host
