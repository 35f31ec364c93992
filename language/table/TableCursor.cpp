#include "language/table/TableCursor.h"

#include "language/table/ByteReading.h"

namespace ppword {
namespace {

struct MemoryBytes {
  std::string_view bytes;
  std::size_t& at;

  [[nodiscard]] int next() const {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at++]) : EOF;
  }
  void putBack(int /*byte*/) const { --at; }
};

}  // namespace

std::optional<Token> TableCursor::nextToken(std::size_t most) {
  std::size_t at = at_;  // a local is faster than the member
  std::size_t size = 0;
  readToken(MemoryBytes{table_, at}, [&](char /*byte*/) { return ++size < most; });
  at_ = at;
  if (size == 0) return std::nullopt;
  const std::size_t offset = at - size;
  return Token{table_.substr(offset, size), offset};
}

std::optional<Token> TableCursor::nextPlainToken() {
  auto token = nextToken();
  while (token && token->text.starts_with('/')) token = nextToken();
  return token;
}

std::optional<CountedLine> TableCursor::nextLine() {
  const std::size_t offset = at_;
  std::size_t at = at_;
  std::size_t size = 0;
  bool hasEnd = false;
  readLine(MemoryBytes{table_, at}, [&](char byte) {
    hasEnd = byte == '\n';
    if (!hasEnd) ++size;
  });
  at_ = at;
  if (size == 0 && !hasEnd) return std::nullopt;
  return CountedLine{table_.substr(offset, size), offset, hasEnd};
}

}  // namespace ppword
