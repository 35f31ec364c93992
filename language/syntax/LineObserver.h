#pragma once

#include <string_view>

namespace ppword {

/// The states of a syntax line: as it is written, and after each pass, in their order.
enum class Pass {
  Written,
  MaskEscapes,
  CleanParentheses,
  RewriteDivisions,
  MaskSigns,
  WordGroups,
  Words,
  ExpressionGroups,
  Expressions,
  NumberGroups,
  Numbers,
  RestoreSigns,
  Evaluate,
  UnmaskEscapes
};

/// What became of an operation in a syntax line.
enum class OperationEnd {
  /// Its result took its place.
  Computed,
  /// It stays as it is: an operand is not a number, or there is no result.
  Kept,
  /// It was removed with the operand that it had: the other one is missing, or a "-" preceded what
  /// is not a number. A sign alone was removed with the comma that held its place.
  Deleted
};

/// Receives what the passes do to a line. Texts are valid during the call only.
class LineObserver {
 public:
  LineObserver() = default;
  LineObserver(const LineObserver&) = delete;
  LineObserver& operator=(const LineObserver&) = delete;
  virtual ~LineObserver() = default;

  /// False when lineAfterPass does nothing: it is not called then.
  [[nodiscard]] virtual bool receivesLines() const = 0;
  virtual void lineAfterPass(Pass pass, std::string_view line) = 0;

  /// An operation as it was in the line, and its result; empty unless it was computed. A long left
  /// operand of a kept operation is shortened to "..." and its end.
  virtual void operationEnded(OperationEnd end, std::string_view operation,
                              std::string_view result) = 0;
};

}  // namespace ppword
