#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "post/consumer/Consumer.h"
#include "verify/Statement.h"

namespace verify {

struct Piece;

/// A statement that a text must have, as the input and the table say.
struct ExpectedStatement {
  struct Part {
    enum class Kind {
      Literal,
      Number,
      /// Whatever is there, up to the end of the statement.
      Anything
    };
    Kind kind = Kind::Literal;
    std::string_view text{};
    double number = 0.0;
    /// The reference that a number is the value of.
    const Piece* piece = nullptr;
  };
  std::vector<Part> parts;
  bool isText = false;
  /// True when its major word is one that a reader knows.
  bool isKnown = false;
  /// True when a value of the input is in it.
  bool hasValue = false;
  /// True when a line that could be a statement is part of it, only because the line before it ends
  /// with a comma.
  bool isDoubtful = false;
  /// As isOneLine() says for the consumer of the text, once all parts are there.
  bool fitsLine = false;

  /// How the statement would be written, for messages.
  [[nodiscard]] std::string text() const;
  /// True when it can be an empty line: nothing is known of its beginning.
  [[nodiscard]] bool mayBeEmpty() const;
  /// True when the end of it is not known.
  [[nodiscard]] bool isOpen() const;
  /// True when a line with the characters of it is the statement: without a $, not open, and with
  /// no character that the consumer does not take.
  [[nodiscard]] bool isOneLine(const host::Consumer& consumer) const;
};

/// Where a statement of a text is not the expected one.
struct Mismatch {
  TextPlace place{};
  /// What is there and what is expected: two numbers, or two statements.
  std::string found;
  std::string expected;
};

/// True when a text has the characters of a statement, with blanks before its numbers only, as most
/// texts do. Another text may still be the same.
[[nodiscard]] bool isPlainly(const ExpectedStatement& expected, std::string_view text,
                             std::span<const Joint> joints = {});

/// Compares a statement of a text with the expected one: words and texts character by character,
/// without the blanks around arguments; numbers to half a unit of the last digit printed. False
/// where they differ; the mismatch is then set. A character that the consumer does not take is
/// compared as what is written in its place.
[[nodiscard]] bool isSame(const ExpectedStatement& expected, const Statement& found,
                          const host::Consumer& consumer, Mismatch& mismatch);

}  // namespace verify
