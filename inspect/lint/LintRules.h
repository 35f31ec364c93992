#pragma once

#include <span>
#include <string_view>

#include "inspect/diagnostics/Diagnostic.h"

namespace host {

/// What the check and the lint of a table report, in the order of their table of rules.
enum class LintKey {
#define LINT_RULE(name, severity, key, fault, hint, about, reported, sound) name,
#include "inspect/lint/LintRules.def"
#undef LINT_RULE
};

/// A row of the table of rules.
struct LintRule {
  /// It never changes.
  std::string_view key;
  /// What a message says, and what to do about it.
  std::string_view fault;
  std::string_view hint;
  Severity severity;
  /// What it means for the text.
  std::string_view about;
  /// A line or a table that is reported, and one to write instead.
  std::string_view reported;
  std::string_view sound;
};

/// All rules, by their LintKey.
[[nodiscard]] std::span<const LintRule> lintRules();
[[nodiscard]] inline const LintRule& ruleOf(LintKey key) {
  return lintRules()[static_cast<std::size_t>(key)];
}

}  // namespace host
