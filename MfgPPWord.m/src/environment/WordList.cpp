#include "src/environment/WordList.h"

#include <utility>

namespace ppword {
namespace {

template <class Index, class List>
void note(Index& positions, const List& list) {
  int position = 0;
  for (const auto& entry : list) positions.try_emplace(entry, ++position);
}

}  // namespace

WordList::WordList(KEPListValKEPString words, KEPRawCollint kinds, KEPRawCollint codes)
    : words_(std::move(words)), kinds_(std::move(kinds)), codes_(std::move(codes)) {
  note(positionOfWord_, words_);
  note(positionOfCode_, codes_);
}

std::optional<WordList::Entry> WordList::find(std::string_view word) const {
  const auto found = positionOfWord_.find(word);
  if (found == positionOfWord_.end()) return std::nullopt;
  const int position = found->second;
  if (position > kinds_.Size() || position > codes_.Size()) return std::nullopt;
  return Entry{kinds_[position], codes_[position]};
}

const KEPString* WordList::wordOf(int code) const {
  const auto found = positionOfCode_.find(code);
  if (found == positionOfCode_.end() || found->second > words_.Size()) return nullptr;
  return &words_[found->second];
}

std::optional<WordList>& wordList() {
  static std::optional<WordList> list;
  return list;
}

}  // namespace ppword
