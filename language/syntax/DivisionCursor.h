#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "language/syntax/Characters.h"

namespace ppword {

/// A divisor must be above it; a division by any other stays.
inline constexpr double kReciprocalThreshold = 1.0e-5;

/// The digits of a reciprocal, which is written as "%g" writes it.
inline constexpr int kReciprocalDigits = 6;

/// What ends an operand of a division.
inline constexpr CharacterTable kDivisionEnds("/,*+-=()");

/// A "/" after the first one of a line.
struct Division {
  std::size_t at;
  /// The text after the "/", up to what ends an operand.
  std::string_view divisor;
  /// What its left operand is multiplied by instead; empty for a division that stays.
  std::string reciprocal;

  [[nodiscard]] std::size_t end() const noexcept { return at + 1 + divisor.size(); }
};

/// Finds the divisions of a line from left to right. The division of something that holds a "%" by
/// a literal number has a reciprocal. For example
///   GOTO/%A/4,3/5  has the divisions  /4 with the reciprocal 0.25  and  /5 without one
/// The divisions before are read as the products that replace them: in %A/4/2 the second one
/// divides 0.25, which holds no "%", and stays.
class DivisionCursor {
 public:
  explicit DivisionCursor(std::string_view line) : line_(line), at_(line.find('/')) {}

  /// The next division; nothing after the last one.
  [[nodiscard]] std::optional<Division> next();

 private:
  [[nodiscard]] bool isOpenedByPercent(std::size_t parenthesis) const noexcept;
  void readParentheses(std::size_t end);
  [[nodiscard]] std::string_view leftOperand();

  std::string_view line_;
  /// The "/" that was found last.
  std::size_t at_;
  /// The end of the last division with a reciprocal: no operand is looked for before it, since
  /// digits are in its place.
  std::size_t barrier_ = 0;

  /// The parentheses are paired, nesting counted, up to here.
  std::size_t paired_ = 0;
  /// For every "(" without partner yet: whether it opens a group.
  std::vector<bool> open_;
  /// True when the last ")" closes a "%(" group.
  bool closesGroup_ = false;
};

}  // namespace ppword
