#pragma once

#include <array>
#include <cstdio>

#include "language/table/TableSource.h"

namespace ppword {

// How tokens and lines are read from bytes, wherever these come from. `Bytes` returns the next byte
// with next(), EOF at the end, and takes the last one back with putBack().

using TextBuffer = std::array<char, kMostCharacters>;

/// The white space of the C locale, whatever the locale of the process.
[[nodiscard]] constexpr bool isBlank(int byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

/// Calls `keep` with each byte of the next token, until it returns false. The position is then
/// directly after the last of these bytes.
template <class Bytes, class Keep>
void readToken(Bytes bytes, Keep keep) {
  int byte = bytes.next();
  while (isBlank(byte)) byte = bytes.next();
  for (; byte != EOF && !isBlank(byte); byte = bytes.next()) {
    if (!keep(static_cast<char>(byte))) return;
  }
  if (byte != EOF) bytes.putBack(byte);
}

/// The next byte, with a carriage return and a line feed read as the line feed.
template <class Bytes>
[[nodiscard]] int nextOfLine(Bytes& bytes) {
  const int byte = bytes.next();
  if (byte != '\r') return byte;
  const int next = bytes.next();
  if (next == '\n') return next;
  if (next != EOF) bytes.putBack(next);
  return byte;
}

/// Calls `keep` with each character of the rest of the line, its line feed too, at most
/// kMostCharacters of them.
template <class Bytes, class Keep>
void readLine(Bytes bytes, Keep keep) {
  for (std::size_t size = 0; size < kMostCharacters; ++size) {
    const int byte = nextOfLine(bytes);
    if (byte == EOF) return;
    keep(static_cast<char>(byte));
    if (byte == '\n') return;
  }
}

}  // namespace ppword
