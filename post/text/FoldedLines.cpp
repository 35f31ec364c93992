#include "post/text/FoldedLines.h"

#include <algorithm>

#include "post/text/Utf8.h"

namespace host {
namespace {

/// The words of a text; a quoted piece is one, whatever it holds.
std::vector<std::string_view> wordsOf(std::string_view text) {
  constexpr std::string_view kOpen = "«";
  constexpr std::string_view kClose = "»";
  std::vector<std::string_view> words;
  std::size_t start = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text.substr(at).starts_with(kOpen)) at = std::min(text.find(kClose, at), text.size() - 1);
    if (text[at] != ' ') continue;
    words.push_back(text.substr(start, at - start));
    start = at + 1;
  }
  words.push_back(text.substr(start));
  return words;
}

}  // namespace

std::vector<std::string> foldedLines(std::string_view text, std::size_t first, std::size_t next) {
  std::vector<std::string> lines(1);
  std::size_t columns = 0;
  for (const std::string_view word : wordsOf(text)) {
    const std::size_t most = lines.size() == 1 ? first : next;
    const std::size_t width = columnsOf(word);
    if (!lines.back().empty() && columns + 1 + width > most) {
      lines.emplace_back();
      columns = 0;
    } else if (!lines.back().empty()) {
      lines.back() += ' ';
      ++columns;
    }
    lines.back() += word;
    columns += width;
  }
  return lines;
}

std::size_t columnsOf(std::string_view text) {
  std::size_t columns = 0;
  for (std::size_t at = 0; at < text.size(); ++columns) {
    at += std::max<std::size_t>(utf8Length(text, at), 1);
  }
  return columns;
}

}  // namespace host
