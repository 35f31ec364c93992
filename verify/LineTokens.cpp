#include "verify/LineTokens.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "verify/PrintedNumber.h"

namespace verify {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kMarks = ",/()=";
constexpr std::string_view kRunEnd = " \t,/()=$";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kNoNumbers[] = {"nan", "inf", "NAN", "INF"};
constexpr std::string_view kNumberStart = "0123456789+-.";
constexpr std::size_t kColumns = 72;
constexpr std::size_t kLongestWord = 6;

/// For each character, which of the sets above and below it is in.
constexpr unsigned kBlankClass = 1;
constexpr unsigned kMarkClass = 2;
constexpr unsigned kRunEndClass = 4;
constexpr unsigned kForeignClass = 16;

constexpr std::array<unsigned char, 256> classesOfAll() {
  std::array<unsigned char, 256> classes{};
  for (std::size_t i = 0; i < classes.size(); ++i) {
    const char c = static_cast<char>(i);
    const auto isOneOf = [c](std::string_view set) {
      return set.find(c) != std::string_view::npos;
    };
    unsigned all = isOneOf(kBlanks) ? kBlankClass : 0;
    if (isOneOf(kMarks)) all |= kMarkClass;
    if (isOneOf(kRunEnd)) all |= kRunEndClass;
    // Neither printable ASCII nor a tab.
    if (c != '\t' && !(c >= ' ' && c <= '~')) all |= kForeignClass;
    classes[i] = static_cast<unsigned char>(all);
  }
  return classes;
}
constexpr auto kClasses = classesOfAll();

bool isOf(char c, unsigned classes) {
  return (kClasses[static_cast<unsigned char>(c)] & classes) != 0;
}

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool isIn(char c, std::string_view set) { return set.find(c) != std::string_view::npos; }

/// True for a run that was meant as a number: no word begins with a sign or a point, has a letter
/// between digits at its beginning, or is what a program prints for no number.
bool looksLikeNumber(std::string_view run) {
  if (std::ranges::find(kNoNumbers, run) != std::end(kNoNumbers)) return true;
  if (!isIn(run.front(), kNumberStart)) return false;
  const std::size_t letter = std::min(run.find_first_not_of(kDigits), run.size());
  if (letter == 0) return true;
  const std::string_view rest = run.substr(letter);
  return !std::all_of(rest.begin(), rest.end(), isLetter);
}

class LineTokens {
 public:
  LineTokens(std::string_view line, long number, Statement& statement, const FindingSink& report)
      : line_(line),
        number_(number),
        statement_(statement),
        report_(report),
        // A line that continues a statement has arguments.
        hasArguments_(!statement.tokens.empty()) {}

  LineEnd read() {
    while (skipBlanks()) {
      if (line_[at_] == '$') return endAtDollar();
      std::size_t end = at_ + 1;
      const bool isMark = isOf(line_[at_], kMarkClass);
      while (!isMark && end < line_.size() && !isOf(line_[end], kRunEndClass)) ++end;
      add(end - at_);
    }
    store(line_);
    return LineEnd::Statement;
  }

 private:
  void report(Rule rule, std::size_t at, std::size_t width, std::string_view subject) const {
    report_({rule, {number_, static_cast<long>(at) + 1}, width, std::string(subject), line_});
  }

  /// False at the end of the line.
  bool skipBlanks() {
    while (at_ < line_.size() && isOf(line_[at_], kBlankClass)) ++at_;
    return at_ < line_.size();
  }

  /// At a $: a comment, or the mark that continues the statement.
  LineEnd endAtDollar() {
    if (line_.substr(at_).starts_with("$$")) {
      store(line_);
      return LineEnd::Statement;
    }
    const std::size_t rest = line_.find_first_not_of(kBlanks, at_ + 1);
    if (rest != std::string_view::npos)
      report(Rule::TextAfterDollar, rest, line_.size() - rest, "");
    store(line_.substr(0, at_));
    return LineEnd::Continued;
  }

  /// Adds the bytes of the line to those of the statement.
  void store(std::string_view bytes) {
    if (fits(true)) statement_.text += bytes;
  }

  /// False when the statement is full; it is reported once.
  bool fits(bool hasSpace) {
    if (statement_.isCut) return false;
    statement_.isCut = !hasSpace || statement_.text.size() + line_.size() > kLongestStatement;
    if (statement_.isCut) report_({Rule::LongStatement, {number_, 1}, 1, "", ""});
    return !statement_.isCut;
  }

  void add(std::size_t length) {
    if (fits(statement_.tokens.size() < kMostTokens)) {
      Token token;
      token.offset = statement_.text.size() + at_;
      token.length = length;
      token.place = {number_, static_cast<long>(at_) + 1};
      classify(token);
      statement_.tokens.push_back(token);
    }
    at_ += length;
  }

  void classify(Token& token) {
    const std::string_view run = line_.substr(at_, token.length);
    if (isOf(run.front(), kMarkClass)) {
      token.kind = TokenKind::Mark;
      hasArguments_ = true;
    } else if (const auto number = readNumber(run)) {
      token.kind = TokenKind::Number;
      takeNumber(run, *number, token);
    } else {
      checkWord(run);
    }
  }

  void takeNumber(std::string_view run, const PrintedNumber& number, Token& token) const {
    token.number = number.value;
    token.halfUnit = number.halfUnit;
    if (!number.isInRange) report(Rule::BadNumber, at_, run.size(), run);
    if (number.hasExponent) report(Rule::Exponent, at_, run.size(), run);
    if (token.number == 0.0 && run.starts_with('-')) report(Rule::MinusZero, at_, run.size(), run);
  }

  void checkWord(std::string_view run) const {
    if (run.find_first_of("%&") != std::string_view::npos) {
      report(Rule::LeftoverReference, at_, run.size(), run);
    } else if (looksLikeNumber(run)) {
      report(Rule::BadNumber, at_, run.size(), run);
    } else if (run.size() > kLongestWord && isLetter(run.front()) && isWordOfStatement()) {
      report(Rule::LongWord, at_, run.size(), run);
    }
  }

  /// True for the first word and for arguments: other words are a text that no word announces.
  [[nodiscard]] bool isWordOfStatement() const {
    return statement_.tokens.empty() || hasArguments_;
  }

  std::string_view line_;
  long number_;
  Statement& statement_;
  const FindingSink& report_;
  std::size_t at_ = 0;
  bool hasArguments_;
};

/// How many columns a line takes; a character of several bytes takes one in a text.
std::size_t columnsOf(std::string_view line, bool isText) {
  if (!isText) return line.size();
  const auto isFirst = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
  return static_cast<std::size_t>(std::count_if(line.begin(), line.end(), isFirst));
}

std::string byteName(char c) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(c);
  return std::string("byte 0x") + kHex[value >> 4U] + kHex[value & 0xFU];
}

}  // namespace

LineEnd addLine(std::string_view line, long number, Statement& statement,
                const FindingSink& report) {
  return LineTokens(line, number, statement, report).read();
}

void checkCharacters(std::string_view line, long number, bool isText, const FindingSink& report) {
  const auto find = [&](Rule rule, std::size_t at, std::size_t width, std::string subject) {
    if (at >= line.size()) return;
    report({rule, {number, static_cast<long>(at) + 1}, width, std::move(subject), line});
  };
  const bool isWide = columnsOf(line, isText) > kColumns;
  if (isWide) find(Rule::WideLine, kColumns, line.size() - kColumns, "");
  find(Rule::TabInLine, line.find('\t'), 1, "");
  const auto* const foreign =
      std::ranges::find_if(line, [](char c) { return isOf(c, kForeignClass); });
  if (foreign == line.end()) return;
  find(isText ? Rule::CharacterInText : Rule::CharacterInStatement,
       static_cast<std::size_t>(foreign - line.begin()), 1, byteName(*foreign));
}

}  // namespace verify
