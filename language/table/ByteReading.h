#pragma once

#include <array>
#include <cstdio>
#include <optional>
#include <string_view>

#include "language/table/TableSource.h"

namespace ppword {

// How tokens and lines are read from bytes, wherever these come from. `Bytes` gives the next byte
// with next(), EOF at the end, and takes the last one back with putBack().

using TextBuffer = std::array<char, kMostCharacters>;

/// The white space of the C locale, whatever the locale of the process.
[[nodiscard]] constexpr bool isBlank(int byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

/// As TableSource::nextToken; `tooLong` is set by a token that is.
template <class Bytes>
[[nodiscard]] std::optional<std::string_view> readToken(Bytes bytes, TextBuffer& buffer,
                                                        bool& tooLong) {
  int byte = bytes.next();
  while (isBlank(byte)) byte = bytes.next();
  std::size_t size = 0;
  for (; byte != EOF && !isBlank(byte); byte = bytes.next()) {
    if (size == buffer.size()) {
      tooLong = true;
      return std::nullopt;
    }
    buffer[size++] = static_cast<char>(byte);
  }
  if (byte != EOF) bytes.putBack(byte);
  if (size == 0) return std::nullopt;
  return std::string_view(buffer.data(), size);
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

/// As TableSource::nextLine.
template <class Bytes>
[[nodiscard]] std::optional<std::string_view> readLine(Bytes bytes, TextBuffer& buffer) {
  std::size_t size = 0;
  while (size < buffer.size()) {
    const int byte = nextOfLine(bytes);
    if (byte == EOF) break;
    buffer[size++] = static_cast<char>(byte);
    if (byte == '\n') break;
  }
  if (size == 0) return std::nullopt;
  return std::string_view(buffer.data(), size);
}

}  // namespace ppword
