#include "inspect/diagnostics/TableText.h"

#include <algorithm>

namespace host {
namespace {

constexpr long kExcerptReach = 400;

bool isBlank(int byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

}  // namespace

int TableText::next() {
  const int byte = file_ ? std::getc(file_.get()) : EOF;
  if (byte == '\n') {
    ++line_;
    column_ = 1;
  } else if (byte != EOF) {
    ++column_;
  }
  return byte;
}

int TableText::peek() {
  if (!file_) return EOF;
  const int byte = std::getc(file_.get());
  if (byte != EOF) std::ungetc(byte, file_.get());
  return byte;
}

std::optional<CountedLine> nextCountedLine(TableText& text) {
  if (text.peek() == EOF) return std::nullopt;
  CountedLine line{{}, text.line(), text.column()};
  while (line.text.size() < kMostTableCharacters) {
    const int byte = text.next();
    if (byte == EOF || byte == '\n') break;
    if (byte == '\r' && text.peek() == '\n') continue;
    line.text += static_cast<char>(byte);
  }
  return line;
}

std::optional<TableToken> nextTableToken(TableText& text) {
  while (isBlank(text.peek())) text.next();
  if (text.peek() == EOF) return std::nullopt;
  TableToken token{{}, 0, text.line(), text.column()};
  for (int byte = text.peek(); byte != EOF && !isBlank(byte); byte = text.peek()) {
    if (token.length++ <= kMostTableCharacters) token.text += static_cast<char>(byte);
    text.next();
  }
  return token;
}

Excerpt excerptAt(const std::string& path, long line, long column) {
  TableText text(path);
  while (text.line() < line && text.next() != EOF) continue;
  Excerpt excerpt{{}, std::max(1L, column - kExcerptReach), false};
  while (text.peek() != EOF && text.line() == line) {
    if (text.column() > column + kExcerptReach) {
      excerpt.goesOn = true;
      break;
    }
    const bool wanted = text.column() >= excerpt.firstColumn;
    const int byte = text.next();
    if (wanted && byte != '\n') excerpt.text += static_cast<char>(byte);
  }
  if (excerpt.text.ends_with('\r')) excerpt.text.pop_back();
  return excerpt;
}

}  // namespace host
