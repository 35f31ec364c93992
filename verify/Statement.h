#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace verify {

/// True for blanks and tabs.
inline bool isBlank(char c) { return c == ' ' || c == '\t'; }

/// How many of them a text begins with.
inline std::size_t blanksBefore(std::string_view text) {
  std::size_t blanks = 0;
  while (blanks < text.size() && isBlank(text[blanks])) ++blanks;
  return blanks;
}

/// A place of a text; both count from 1, the column in bytes.
struct TextPlace {
  long line = 0;
  long column = 0;
};

enum class TokenKind {
  Word,
  Number,
  /// One of ( ) , / and =
  Mark
};

/// A piece of a statement.
struct Token {
  TokenKind kind = TokenKind::Word;
  /// Where it is in the statement's text.
  std::size_t offset = 0;
  std::size_t length = 0;
  TextPlace place;
  /// Of a number: its value, and half a unit of its last digit.
  double number = 0.0;
  double halfUnit = 0.0;
};

/// Where a line that continues a statement begins in its text.
struct Joint {
  std::size_t offset = 0;
  long line = 0;
};

/// A statement of a text: a major word with its arguments, a word with a text, or a comment.
struct Statement {
  TextPlace place;
  /// Its lines, without marks that continue it and without blanks at its end.
  std::string text;
  /// Empty for a comment and for a word with a text.
  std::vector<Token> tokens;
  /// Of a statement in several lines.
  std::vector<Joint> joints;
  /// True for a comment and for a word with a text.
  bool isText = false;
  /// True when it, or a line of it, is longer than it may be; its end is then left out.
  bool isCut = false;
  /// The major word; empty for a comment and where a statement begins with something else.
  std::string word;

  /// The place of a byte of the text.
  [[nodiscard]] TextPlace placeOf(std::size_t offset) const {
    TextPlace at{place.line,
                 isText ? place.column + static_cast<long>(offset) : static_cast<long>(offset) + 1};
    for (const Joint& joint : joints) {
      if (joint.offset <= offset) at = {joint.line, static_cast<long>(offset - joint.offset) + 1};
    }
    return at;
  }
  [[nodiscard]] std::string_view textOf(const Token& token) const {
    return std::string_view(text).substr(token.offset, token.length);
  }
  [[nodiscard]] bool isMark(const Token& token, char mark) const {
    return token.kind == TokenKind::Mark && text[token.offset] == mark;
  }
};

}  // namespace verify
