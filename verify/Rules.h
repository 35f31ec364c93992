#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "verify/Statement.h"
#include "verify/Words.h"

namespace verify {

/// How much a finding matters: a reader takes something wrong or nothing at all; some readers do;
/// nothing has to be done.
enum class Weight { Error, Warning, Note };

/// What is found in a text, in the order of the table of rules.
enum class Rule {
#define VERIFY_RULE(name, weight, key, fault, hint, about, reported, sound) name,
#include "verify/Rules.def"
#undef VERIFY_RULE
};

/// A row of the table of rules.
struct RuleRow {
  /// It never changes.
  std::string_view key;
  Weight weight;
  /// What a message says, and what to do about it.
  std::string_view fault;
  std::string_view hint;
  /// What it means for who reads the text.
  std::string_view about;
  /// A text that is reported, and one to write instead; empty for a comparison with an input.
  std::string_view reported;
  std::string_view sound;
};

/// All rules, by their Rule.
[[nodiscard]] std::span<const RuleRow> rules();
[[nodiscard]] inline const RuleRow& rowOf(Rule rule) {
  return rules()[static_cast<std::size_t>(rule)];
}

/// Something that a reader would stumble over.
struct Finding {
  Rule rule;
  TextPlace place;
  /// How many bytes from the place on it is about; at least 1.
  std::size_t width = 1;
  /// The word or the number that it is about; empty where the place says it.
  std::string subject;
  /// The line, where it is at hand; valid during the call.
  std::string_view line{};
};

/// What a finding says: "SUBJECT: FAULT; HINT".
[[nodiscard]] std::string messageOf(const Finding& finding);

using FindingSink = std::function<void(const Finding& finding)>;

/// Reports what is wrong in a statement as a whole: arguments, parentheses, points, tool axes.
void checkStatement(const Statement& statement, const Words& words, const FindingSink& report);

}  // namespace verify
