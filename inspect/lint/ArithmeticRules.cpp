#include <algorithm>
#include <cctype>
#include <cmath>

#include "inspect/lint/LineRules.h"
#include "language/number/DecimalPrefix.h"

namespace host {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
std::string_view textOf(const LineReading& reading, const LineOperation& operation) {
  return reading.written(operation.begin, operation.end() - operation.begin);
}

void noPrecedence(const LineReading& reading, LineReport& report) {
  for (const LineOperation& operation : reading.operations) {
    if (operation.sign != '*' || !operation.isAfterSum || !operation.isComputed) continue;
    report.warn(LintKey::NoPrecedence, operation.at, 1, textOf(reading, operation));
  }
}

void emptyOperand(const LineReading& reading, LineReport& report) {
  for (const LineOperation& operation : reading.operations) {
    if (operation.operands != ppword::Operands::Missing) continue;
    report.warn(LintKey::EmptyOperand, operation.at, 1, textOf(reading, operation));
  }
}

/// The first byte of an operand that is no blank.
std::size_t firstOf(std::string_view operand) {
  return std::min(operand.find_first_not_of(' '), operand.size());
}

void minusBeforeWord(const LineReading& reading, LineReport& report) {
  for (const LineOperation& operation : reading.operations) {
    if (operation.operands != ppword::Operands::SignOfText) continue;
    report.warn(LintKey::MinusBeforeWord, operation.at, operation.end() - operation.at,
                textOf(reading, operation));
  }
}

bool isLoneMinus(const LineOperation& operation) {
  return operation.sign == '-' && !operation.hasLeft();
}

/// Position of a minus whose operand is a value; none for an operation without one.
std::size_t negatedValue(const LineReading& reading, const LineOperation& operation) {
  const std::size_t first = operation.at + 1 + firstOf(operation.right);
  const bool isSigned = reading.flat.compare(first, 1, "-") == 0;
  if (isSigned && reading.isValue(first + 1)) return first;
  return isLoneMinus(operation) && reading.isValue(first) ? operation.at : kNone;
}

void minusBeforeReference(const LineReading& reading, LineReport& report) {
  for (const LineOperation& operation : reading.operations) {
    const std::size_t at = negatedValue(reading, operation);
    if (at == kNone) continue;
    report.warn(LintKey::MinusBeforeReference, at, 1, reading.written(at, operation.end() - at));
  }
}

/// Warns of signs that nothing computes: before a sign, and after an operator with its sign.
void doubleMinus(const LineReading& reading, LineReport& report) {
  for (const LineOperation& operation : reading.operations) {
    const std::size_t first = firstOf(operation.right);
    const std::string_view operand = operation.right.substr(first);
    if (!operand.starts_with('-') || negatedValue(reading, operation) != kNone) continue;
    if (!isLoneMinus(operation) && operand.size() > 1) continue;
    report.warn(LintKey::DoubleMinus, operation.at + 1 + first, 1, textOf(reading, operation));
  }
}

std::string_view divisorOf(const LineReading& reading, const ppword::Division& division) {
  return reading.written(division.at + 1, division.divisor.size());
}

void largeDivisor(const LineReading& reading, LineReport& report) {
  for (const ppword::Division& division : reading.divisions) {
    if (division.reciprocal.find('e') == kNone) continue;
    report.warn(LintKey::LargeDivisor, division.at + 1, division.divisor.size(),
                divisorOf(reading, division));
  }
}

/// The part of relative error that the digits of a reciprocal may bring.
constexpr double kExact = 1.0e-9;

void shortReciprocal(const LineReading& reading, LineReport& report) {
  if (reading.isComment) return;
  for (const ppword::Division& division : reading.divisions) {
    const auto reciprocal = ppword::decimalPrefix(division.reciprocal);
    const auto divisor = ppword::decimalPrefix(division.divisor);
    const bool isLarge = division.reciprocal.find('e') != kNone;
    if (isLarge || !reciprocal || !divisor) continue;
    if (std::fabs(*reciprocal * *divisor - 1.0) <= kExact) continue;
    report.warn(LintKey::ShortReciprocal, division.at + 1, division.divisor.size(),
                divisorOf(reading, division));
  }
}

/// True for what a division leaves after its "/": a number with its sign, or a "(".
bool isDivisor(std::string_view text) {
  text.remove_prefix(firstOf(text));
  if (text.starts_with('(')) return true;
  if (text.starts_with('-')) text.remove_prefix(1);
  return ppword::operandNumber(text.substr(0, ppword::kDivisionEnds.firstIn(text))).has_value();
}

/// True for a division of numbers that stays in the line.
bool isKept(const LineReading& reading, const ppword::Division& division) {
  const std::string_view flat = reading.flat;
  // A comment is not computed, so that even a product stays.
  if (!division.reciprocal.empty()) return reading.isComment && flat[division.at] == '*';
  if (reading.isProse || flat[division.at] != '/') return false;
  const std::string_view before = flat.substr(0, division.at);
  if (!isDivisor(flat.substr(division.at + 1))) return false;
  const std::size_t begin = ppword::kDivisionEnds.throughLastIn(before);
  return before.ends_with(')') || ppword::operandNumber(before.substr(begin));
}

void divisionKept(const LineReading& reading, LineReport& report) {
  for (const ppword::Division& division : reading.divisions) {
    if (!isKept(reading, division)) continue;
    report.warn(LintKey::DivisionKept, division.at, 1,
                reading.written(division.at, division.divisor.size() + 1));
  }
}

/// Warns of what is, or becomes, a number between parentheses.
void parenthesesKept(const LineReading& reading, LineReport& report) {
  if (reading.isProse) return;
  const std::string_view flat = reading.flat;
  for (std::size_t open = flat.find('('); open != kNone; open = flat.find('(', open + 1)) {
    const std::size_t end = flat.find_first_not_of("0123456789.eE +-*", open + 1);
    if (end == kNone || flat[end] != ')' || end == open + 1) continue;
    if (std::isalpha(static_cast<unsigned char>(flat[open + 1])) != 0) continue;
    const std::string_view group = reading.text.substr(open, end + 1 - open);
    // A division that is part of a name is reported as such.
    const std::size_t slash = group.find('/');
    if (slash != kNone && flat[open + slash] != '*') continue;
    report.warn(LintKey::ParenthesesKept, open, 1, reading.written(open, group.size()));
  }
}

using Rule = void (*)(const LineReading& reading, LineReport& report);
constexpr Rule kRules[] = {noPrecedence,    largeDivisor,         shortReciprocal,
                           divisionKept,    parenthesesKept,      emptyOperand,
                           minusBeforeWord, minusBeforeReference, doubleMinus};

}  // namespace

void lintArithmetic(const LineReading& reading, LineReport& report) {
  for (const Rule rule : kRules) rule(reading, report);
}

}  // namespace host
