#pragma once

#include <optional>
#include <string_view>

#include "language/syntax/Characters.h"

namespace ppword {

/// What an operand that is a number consists of.
inline constexpr CharacterTable kNumberCharacters("0123456789., -");

/// True for a comment or a print, whose operations are not computed: a line with "$$", "PPRINT" or
/// "*VORTA".
[[nodiscard]] bool isComment(std::string_view line);

/// The number that an operand is; nothing when it holds other characters or is too large.
[[nodiscard]] std::optional<double> operandNumber(std::string_view operand);

/// Which operands an operation has.
enum class Operands {
  /// Both; whether they are numbers is another question.
  Both,
  /// None, or only one: the operation is deleted with it.
  Missing,
  /// It is the "-" in front of a number, which stays.
  SignOfNumber,
  /// It is a "-" in front of what is not a number, which is deleted.
  SignOfText
};

/// A "+", "-" or "*" of a line.
struct Operation {
  /// The text between the operation before it, or the start of the line, and its sign.
  std::string_view before;
  /// Where its left operand begins: in `before`, or earlier, with the operations that it is made
  /// of.
  std::size_t begin;
  /// Where its sign is.
  std::size_t at;
  char sign;
  /// A "-" in front belongs to it.
  std::string_view right;
  Operands operands;

  [[nodiscard]] bool hasLeft() const noexcept { return at > begin; }
  [[nodiscard]] std::size_t end() const noexcept { return at + 1 + right.size(); }
};

/// Finds the operations of a line from left to right, as they are computed: without precedence. For
/// example
///   X/2+3*-4,-A  has the operations  2 + 3  and  2+3 * -4  and the sign of the text A
class OperationCursor {
 public:
  explicit OperationCursor(std::string_view line) noexcept : line_(line) {}

  /// The next operation; nothing after the last one.
  [[nodiscard]] std::optional<Operation> next();

 private:
  std::string_view line_;
  /// The end of the operation that was found last.
  std::size_t from_ = 0;
  /// Where the left operand of the next one begins.
  std::size_t begin_ = 0;
};

}  // namespace ppword
