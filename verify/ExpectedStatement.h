#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "verify/InputValues.h"
#include "verify/Statement.h"
#include "verify/TableLines.h"

namespace verify {

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
    std::string text;
    double number = 0.0;
  };
  std::vector<Part> parts;
  /// The major word; empty where a value is in its place.
  std::string word;
  bool isText = false;
  /// True when a value of the input is in it.
  bool hasValue = false;

  /// How the statement would be written, for messages.
  [[nodiscard]] std::string text() const;
  /// True when the end of it is not known.
  [[nodiscard]] bool isOpen() const;
};

/// The statements that the lines of an instruction print with the values of an input.
/// `dropsComma`: of the only line, as of a dwell without a unit.
[[nodiscard]] std::vector<ExpectedStatement> expectedStatements(const TableLines::Lines& lines,
                                                                const InputValues& values,
                                                                const DocumentWords& words,
                                                                bool dropsComma);

/// Where a statement of a text is not the expected one.
struct Mismatch {
  TextPlace place;
  /// What is there and what is expected: two numbers, or two statements.
  std::string found;
  std::string expected;
};

/// Compares a statement of a text with the expected one: words and texts character by character,
/// without the blanks around arguments; numbers to half a unit of the last digit printed. Nothing
/// when they are the same.
[[nodiscard]] std::optional<Mismatch> compare(const ExpectedStatement& expected,
                                              const Statement& found);

}  // namespace verify
