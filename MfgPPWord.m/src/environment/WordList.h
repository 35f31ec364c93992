#pragma once

#include <optional>
#include <string_view>
#include <unordered_map>

#include "System/KEPList.h"
#include "System/KEPString.h"

namespace ppword {

/// PP words with their kinds and codes, three lists parallel by position, found by word and by
/// code.
class WordList {
 public:
  WordList() = default;
  /// Codes may be fewer, or more, than words.
  WordList(KEPListValKEPString words, KEPRawCollint kinds, KEPRawCollint codes);
  WordList(const WordList&) = delete;
  WordList& operator=(const WordList&) = delete;

  struct Entry {
    int kind;
    int code;
  };
  /// Of the first entry with this word; nothing when there is none, or it has no kind or code.
  [[nodiscard]] std::optional<Entry> find(std::string_view word) const;
  /// Of the first entry with this code; null when there is none, or it has no word.
  [[nodiscard]] const KEPString* wordOf(int code) const;

 private:
  KEPListValKEPString words_;
  KEPRawCollint kinds_;
  KEPRawCollint codes_;
  // First positions, from 1. The keys are the texts of words_.
  std::unordered_map<std::string_view, int> positionOfWord_;
  std::unordered_map<int, int> positionOfCode_;
};

/// The word list of the process; nothing before the first store and after a delete.
[[nodiscard]] std::optional<WordList>& wordList();

}  // namespace ppword
