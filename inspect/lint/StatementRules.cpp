#include "inspect/lint/StatementRules.h"

#include <algorithm>

#include "inspect/lint/LineWords.h"

namespace host {
namespace {

constexpr std::size_t kMostOpen = 1000;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// True for a line that begins with a number, a separator, a parenthesis or several values.
bool beginsWithValue(std::string_view line) {
  if (line.empty()) return false;
  const std::string_view rest = line.substr(line.find_first_not_of("+-") == 1 ? 1 : 0);
  const char first = rest.front();
  if (isDigit(first)) {
    // A word can begin with a digit: 5AXIS.
    const std::size_t end = rest.find_first_not_of("0123456789.");
    return end == rest.npos || !isWordCharacter(rest[end]);
  }
  if (first == '%' || first == '&') return rest.find(',') != rest.npos;
  return std::string_view("(),.").find(first) != std::string_view::npos;
}

bool goesOn(std::string_view line) { return line.ends_with(',') || line.ends_with('$'); }

bool isInReference(const LineReading& reading, std::size_t at) {
  return std::any_of(
      reading.references.begin(), reading.references.end(),
      [at](const LineReference& each) { return at >= each.start && at < each.end(); });
}

/// A number with a letter O in place of a zero: 1O0, O.5.
bool isSpoiltNumber(std::string_view run) {
  const bool hasLetter = run.find_first_of("Oo") != run.npos;
  const bool hasDigit = run.find_first_of("0123456789") != run.npos;
  const bool hasOther = run.find_first_not_of("0123456789.Oo") != run.npos;
  const bool isNumber =
      isDigit(run.front()) || run.front() == '.' || run.substr(1).starts_with('.');
  return hasLetter && hasDigit && !hasOther && isNumber;
}

bool isOfRun(char c) { return isWordCharacter(c) || c == '.'; }

void lettersInNumbers(const LineReading& reading, LineReport& report) {
  const std::string_view text = reading.text;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at;
    while (end < text.size() && isOfRun(text[end])) ++end;
    const std::string_view run = text.substr(at, end - at);
    if (!run.empty() && isSpoiltNumber(run) && !isInReference(reading, at)) {
      report.warn(LintKey::LetterInNumber, at, run.size(), run);
    }
    at = end + 1;
  }
}

void separators(const LineReading& reading, LineReport& report) {
  const std::string_view text = reading.text;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isDouble = text[at] == '/' && at > 0 && text[at - 1] == '/';
    if (text[at] != ';' && text[at] != '\\' && !isDouble) continue;
    report.warn(LintKey::WrongSeparator, at, 1,
                text.substr(isDouble ? at - 1 : at, isDouble ? 2 : 1));
  }
}

}  // namespace

Statements::Statements(const TableBlocks& blocks) {
  for (const TableBlocks::Insert& insert : blocks.inserts) inserted_.insert(insert.name.text);
}

void Statements::read(const TableLine& line, const LineReading& reading, LineReport& report) {
  if (!line.isContinued) {
    open_.clear();
    hasInsert_ = false;
  }
  hasInsert_ = hasInsert_ || line.isAfterInsert || inserted_.contains(line.command);
  if (reading.isProse) return;
  const bool isNew = !line.isContinued && !line.isFirst && !line.isAfterAnother && !hasInsert_;
  if (isNew && beginsWithValue(reading.line)) {
    report.warn(LintKey::LostContinuation, 0, 1, reading.line);
  }
  readParentheses(reading, report);
  if (!goesOn(reading.line) || line.isLast || line.isBeforeInsert) end(line, reading, report);
}

void Statements::readParentheses(const LineReading& reading, LineReport& report) {
  for (std::size_t at = 0; at < reading.text.size(); ++at) {
    if (reading.text[at] == '(' && open_.size() < kMostOpen) open_.push_back(report.offsetOf(at));
    if (reading.text[at] != ')') continue;
    if (!open_.empty()) {
      open_.pop_back();
    } else if (!hasInsert_) {
      report.warn(LintKey::UnbalancedParentheses, at, 1, ")");
    }
  }
}

void Statements::end(const TableLine& line, const LineReading& reading, LineReport& report) {
  const bool isWhole = !hasInsert_ && !line.isBeforeInsert;
  if (isWhole && !open_.empty()) report.warnAt(LintKey::UnbalancedParentheses, open_.front(), "(");
  open_.clear();
  if (isWhole && line.isLast && goesOn(reading.line)) {
    const std::size_t last = reading.text.size() - 1;
    report.warn(LintKey::DanglingComma, last, 1, reading.text.substr(last));
  }
}

void lintCharacters(const LineReading& reading, LineReport& report) {
  if (reading.isProse) return;
  separators(reading, report);
  lettersInNumbers(reading, report);
}

}  // namespace host
