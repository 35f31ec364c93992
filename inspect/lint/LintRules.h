#pragma once

#include <span>
#include <string_view>

#include "inspect/diagnostics/Diagnostic.h"

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
  ReferenceInName,
  BareParameter,
  UnknownWord,
  MissingSlash,
  EmptyArgument,
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
  DuplicateCode,
  InexactKeyword,
  MixedSequence,
  LostLine,
  MisspeltName,
  UnusedName,
  IdleFormat,
  MisspeltWord,
  UnusedWords
};

/// The stable key of a warning, what it says, and what to do about it.
struct LintRule {
  std::string_view key;
  std::string_view fault;
  std::string_view hint;
  Severity severity = Severity::Warning;
};

/// All rules, by their LintKey.
[[nodiscard]] std::span<const LintRule> lintRules();
[[nodiscard]] inline const LintRule& ruleOf(LintKey key) {
  return lintRules()[static_cast<std::size_t>(key)];
}

}  // namespace host
