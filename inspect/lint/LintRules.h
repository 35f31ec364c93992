#pragma once

#include <span>
#include <string_view>

namespace host {

/// What the lint of a table warns of, in the order of its table of rules.
enum class LintKey {
  NoPrecedence,
  OperatorInExpression,
  ExponentOperand,
  LargeDivisor,
  ShortReciprocal,
  DivisionInName,
  DivisionKept,
  ParenthesesKept,
  EmptyOperand,
  MinusBeforeWord,
  MinusBeforeReference,
  DoubleMinus,
  SignInComment,
  BlankInName,
  TextBehindParenthesis,
  DollarBehindName,
  UnknownParameter,
  WideLine,
  SplitLine,
  UnclosedSection,
  SurplusEnd,
  UnreadName,
  UnreadSection,
  UnknownInsert,
  DuplicateName,
  MissingCode,
  ShiftedPair,
  CodeNotNumber,
  CodeCut,
  DuplicateWord,
  DuplicateCode
};

/// The stable key of a warning, what it says, and what to do about it.
struct LintRule {
  std::string_view key;
  std::string_view fault;
  std::string_view hint;
};

/// All rules, by their LintKey.
[[nodiscard]] std::span<const LintRule> lintRules();
[[nodiscard]] inline const LintRule& ruleOf(LintKey key) {
  return lintRules()[static_cast<std::size_t>(key)];
}

}  // namespace host
