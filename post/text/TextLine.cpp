#include "post/text/TextLine.h"

#include <algorithm>

#include "language/table/Keywords.h"

namespace host {

bool isTextLine(std::string_view line, std::span<const std::string> words) {
  if (line.starts_with("$$")) return true;
  const std::string_view word = line.substr(0, line.find_first_of(" /,%&"));
  const bool isKnown = ppword::isTextWord(word) || word == "REMARK";
  return isKnown || std::find(words.begin(), words.end(), word) != words.end();
}

std::vector<std::string> withKnownTextWords(std::vector<std::string> words) {
  words.insert(words.end(), {"DISPLY", "LETTER", "TITLES", "TPRINT"});
  return words;
}

}  // namespace host
