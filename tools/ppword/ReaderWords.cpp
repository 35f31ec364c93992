#include "tools/ppword/ReaderWords.h"

#include "post/toolpath/LineReader.h"
#include "tools/ppword/Contents.h"

ReaderWords::ReaderWords(const host::Document& content, const std::string& table)
    : document(documentWords(content)) {
  if (!table.empty()) addTextWords(table, words);
}

std::vector<std::string> textWordsOf(const std::string& path) {
  constexpr int kWithText = 2;
  std::vector<std::string> words;
  const Contents contents = tableContents(path, "words");
  for (const AptWord& word : contents.words.value_or(std::vector<AptWord>())) {
    if (word.kind == kWithText) words.push_back(word.word);
  }
  return words;
}

// A word that has a meaning for the reader has it still.
void addTextWords(const std::string& path, verify::Words& words) {
  for (const std::string& word : textWordsOf(path)) {
    if (words.find(word) == nullptr) words.add(word, "PPRINT");
  }
}

void addMeanings(const host::ConsumerProfile& profile, verify::Words& words) {
  constexpr std::size_t kLongest = 40;
  for (const host::WordMeaning& meaning : profile.words) {
    const auto refuse = [&](const std::string& message) {
      throw host::InputError(profile.name, meaning.line, meaning.column, message);
    };
    if (words.find(meaning.known) == nullptr) {
      refuse("the reader does not know the word '" + meaning.known.substr(0, kLongest) + '\'');
    }
    if (!words.add(meaning.word, meaning.known)) {
      refuse('\'' + meaning.word.substr(0, kLongest) + "' is not a word of APT");
    }
  }
}
