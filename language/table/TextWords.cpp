#include "language/table/TextWords.h"

#include <algorithm>
#include <array>

#include "language/syntax/Blanks.h"

namespace ppword {

bool isTextWord(std::string_view token) {
  constexpr std::array<std::string_view, 4> kWords = {"PARTNO", "$$", "INSERT", "DNCMSG"};
  return token.starts_with("PPRINT") ||
         std::find(kWords.begin(), kWords.end(), token) != kWords.end();
}

std::string textElement(std::string_view word, std::string_view rest) {
  std::string element(word);
  // deliberate: the last character goes, even when it is no line feed
  element.append(rest, 0, rest.size() - 1);
  return std::string(withoutBlanks(element));
}

}  // namespace ppword
