#include <algorithm>

#include "inspect/lint/LineRules.h"
#include "language/syntax/Signs.h"

namespace host {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// The reference as it is in the line; an expression with the ")" that ends it.
std::string_view textOf(const LineReading& reading, const LineReference& reference) {
  const bool isClosed =
      reference.isExpression && reading.text.substr(reference.end()).starts_with(')');
  return reading.written(reference.start, reference.name.size() + (isClosed ? 2 : 1));
}

bool endsAtSign(const LineReading& reading, const LineReference& reference) {
  return reference.end() < reading.text.size() &&
         ppword::kSigns.find(reading.text[reference.end()]) != kNone;
}

/// Position of a division in an expression that becomes a product before the expression is read.
std::size_t productIn(const LineReading& reading, const LineReference& reference) {
  auto division = std::partition_point(
      reading.divisions.begin(), reading.divisions.end(),
      [&](const ppword::Division& candidate) { return candidate.at < reference.start; });
  for (; division != reading.divisions.end() && division->at < reference.end(); ++division) {
    if (!division->reciprocal.empty()) return division->at;
  }
  return kNone;
}

void operatorInExpression(const LineReading& reading, const LineReference& reference,
                          LineReport& report) {
  if (!reference.isExpression) return;
  const std::size_t sign = reference.name.find_first_of(ppword::kSigns);
  const std::size_t at =
      std::min(sign == kNone ? kNone : reference.start + 1 + sign, productIn(reading, reference));
  if (at == kNone) return;
  report.warn(LintKey::OperatorInExpression, at, 1, textOf(reading, reference));
}

void divisionInName(const LineReading& reading, const LineReference& reference,
                    LineReport& report) {
  const std::size_t slash = reference.name.find('/');
  if (reference.isExpression || slash == kNone) return;
  report.warn(LintKey::DivisionInName, reference.start + 1 + slash, 1, textOf(reading, reference));
}

void signInComment(const LineReading& reading, const LineReference& reference, LineReport& report) {
  if (!reading.isComment || reference.isExpression || !endsAtSign(reading, reference)) return;
  report.warn(LintKey::SignInComment, reference.end(), 1,
              reading.written(reference.start, reference.name.size() + 2));
}

void blankInName(const LineReading& reading, const LineReference& reference, LineReport& report) {
  if (reference.isExpression || (reading.isComment && endsAtSign(reading, reference))) return;
  const std::size_t blank = reference.name.substr(0, reference.name.find(')')).find(' ');
  if (blank == kNone) return;
  report.warn(LintKey::BlankInName, reference.start + 1 + blank, 1, textOf(reading, reference));
}

void textBehindParenthesis(const LineReading& reading, const LineReference& reference,
                           LineReport& report) {
  if (reference.isExpression) return;
  const std::size_t close = reference.name.find(')');
  const std::size_t text = close == kNone ? kNone : reference.name.find_first_not_of(')', close);
  if (text == kNone) return;
  report.warn(LintKey::TextBehindParenthesis, reference.start + 1 + text,
              reference.name.size() - text, textOf(reading, reference));
}

void dollarBehindName(const LineReading& reading, const LineReference& reference,
                      LineReport& report) {
  if (reference.isExpression || reading.text[reference.start] != '%') return;
  const std::size_t dollar = reference.name.substr(0, reference.name.find(')')).find('$');
  if (dollar == kNone) return;
  report.warn(LintKey::DollarBehindName, reference.start + 1 + dollar, 1,
              textOf(reading, reference));
}

using Rule = void (*)(const LineReading& reading, const LineReference& reference,
                      LineReport& report);
constexpr Rule kRules[] = {operatorInExpression, divisionInName,        signInComment,
                           blankInName,          textBehindParenthesis, dollarBehindName};

}  // namespace

void lintNames(const LineReading& reading, LineReport& report) {
  for (const LineReference& reference : reading.references) {
    for (const Rule rule : kRules) rule(reading, reference, report);
  }
}

}  // namespace host
