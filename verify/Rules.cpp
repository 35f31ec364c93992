#include "verify/Rules.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace verify {
namespace {

using enum Weight;

constexpr RuleRow kRules[] = {
#define VERIFY_RULE(name, weight, key, fault, hint, about, reported, sound) \
  {key, weight, fault, hint, about, reported, sound},
#include "verify/Rules.def"
#undef VERIFY_RULE
};

// A subject is cut to this many bytes.
constexpr std::size_t kLongestSubject = 200;

constexpr double kAxisTolerance = 1e-4;
constexpr double kHalf = 0.5;
constexpr std::size_t kPointNumbers = 3;
constexpr std::size_t kPointAndAxisNumbers = 6;

/// Looks at the tokens of a statement one after the other.
class StatementRules {
 public:
  StatementRules(const Statement& statement, const Words& words, const FindingSink& report)
      : statement_(statement), words_(words), report_(report) {}

  void check() {
    const auto& tokens = statement_.tokens;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
      const Token* const next = at + 1 < tokens.size() ? &tokens[at + 1] : nullptr;
      checkParentheses(tokens[at]);
      checkArgument(tokens[at], next);
    }
    if (depth_ > 0) report(Rule::OpenParenthesis, tokens.back(), "");
    checkPoint();
  }

 private:
  void report(Rule rule, const Token& token, std::string subject) const {
    const bool isOneLine = token.place.line == statement_.place.line;
    const std::string_view line =
        isOneLine ? std::string_view(statement_.text) : std::string_view();
    report_({rule, token.place, token.length, std::move(subject), line});
  }

  [[nodiscard]] bool isAny(const Token& token, std::string_view marks) const {
    if (token.kind != TokenKind::Mark) return false;
    const char found = statement_.text[token.offset];
    return std::ranges::any_of(marks, [found](char mark) { return mark == found; });
  }

  void checkParentheses(const Token& token) {
    if (isAny(token, "(")) ++depth_;
    if (isAny(token, ")") && --depth_ < 0) {
      report(Rule::OpenParenthesis, token, "");
      depth_ = 0;
    }
  }

  void checkArgument(const Token& token, const Token* next) {
    const bool isSlash = isAny(token, "/");
    hasArguments_ = hasArguments_ || isSlash;
    const bool wantsValue = isAny(token, ",/(=");
    const bool endsValue = next == nullptr || isAny(*next, ",)");
    if (wantsValue && endsValue) report(Rule::EmptyArgument, token, "");
    if (next == nullptr || !hasArguments_ || token.place.line != next->place.line) return;
    const bool isBefore = token.kind != TokenKind::Mark || isAny(token, ")");
    const bool isAfter = next->kind != TokenKind::Mark || isAny(*next, "(");
    if (isBefore && isAfter)
      report(Rule::MissingComma, *next, std::string(statement_.textOf(*next)));
  }

  /// The point of GOTO and FROM, the axis of these and of TLAXIS.
  void checkPoint() const {
    const WordRow* const row = words_.find(statement_.word);
    if (row == nullptr || !onlyNumbers()) return;
    const bool isPoint = row->word == "GOTO" || row->word == "FROM";
    const std::size_t count = numberCount();
    if (isPoint && count != kPointNumbers && count != kPointAndAxisNumbers) {
      report(Rule::GotoCount, statement_.tokens.front(),
             statement_.word + " has " + std::to_string(count));
      return;
    }
    const std::size_t before = isPoint ? kPointNumbers : 0;
    if ((isPoint || row->word == "TLAXIS") && count == before + kPointNumbers) checkAxis(before);
  }

  [[nodiscard]] bool onlyNumbers() const {
    const auto isWord = [](const Token& token) { return token.kind == TokenKind::Word; };
    return !statement_.isText && std::ranges::count_if(statement_.tokens, isWord) == 1;
  }

  [[nodiscard]] std::size_t numberCount() const {
    const auto isNumber = [](const Token& token) { return token.kind == TokenKind::Number; };
    return static_cast<std::size_t>(std::ranges::count_if(statement_.tokens, isNumber));
  }

  /// The three numbers after the first `before`.
  void checkAxis(std::size_t before) const {
    std::vector<const Token*> numbers;
    for (const Token& token : statement_.tokens) {
      if (token.kind == TokenKind::Number) numbers.push_back(&token);
    }
    double square = 0.0;
    double doubt = kAxisTolerance;
    for (std::size_t at = before; at < numbers.size(); ++at) {
      square += numbers[at]->number * numbers[at]->number;
      doubt = std::max(doubt, doubtOf(*numbers[at]));
    }
    const double off = std::abs(std::sqrt(square) - 1.0);
    if (!(off <= doubt)) report(Rule::AxisLength, *numbers[before], "");
  }

  /// How much the digits of a component let the length of an axis differ. A number without decimals
  /// is exact.
  static double doubtOf(const Token& token) {
    return token.halfUnit < kHalf ? 2.0 * token.halfUnit : 0.0;
  }

  const Statement& statement_;
  const Words& words_;
  const FindingSink& report_;
  int depth_ = 0;
  bool hasArguments_ = false;
};

}  // namespace

std::span<const RuleRow> rules() { return kRules; }

std::string messageOf(const Finding& finding) {
  const RuleRow& row = rowOf(finding.rule);
  std::string text = finding.subject.substr(0, kLongestSubject);
  if (text.size() < finding.subject.size()) text += "...";
  if (!text.empty()) text += ": ";
  ((text += row.fault) += "; ") += row.hint;
  return text;
}

void checkStatement(const Statement& statement, const Words& words, const FindingSink& report) {
  if (!statement.isText) {
    StatementRules(statement, words, report).check();
  } else if (statement.text.ends_with('/') && !statement.word.empty()) {
    const long column = statement.place.column + static_cast<long>(statement.text.size()) - 1;
    report({Rule::EmptyArgument, {statement.place.line, column}, 1, "", statement.text});
  }
}

}  // namespace verify
