#include "verify/StatementReader.h"

#include <algorithm>
#include <utility>

#include "post/consumer/Consumer.h"
#include "verify/LineTokens.h"

namespace verify {
namespace {

constexpr std::string_view kFigures = "0123456789";
constexpr std::size_t kStatementColumns = 72;
constexpr std::size_t kNumberColumns = 8;

std::string_view withoutBlanks(std::string_view line) {
  while (line.ends_with(' ') || line.ends_with('\t')) line.remove_suffix(1);
  return line;
}

/// True where $$ is.
bool hasComment(std::string_view line, std::size_t at) {
  return at + 1 < line.size() && line[at] == '$' && line[at + 1] == '$';
}

/// True for letters, then digits, at least one: PART0010 or 00000010.
bool isSequenceNumber(std::string_view field) {
  const auto isCapital = [](char c) { return (c >= 'A' && c <= 'Z') || c == ' '; };
  const auto* const digits = std::find_if_not(field.begin(), field.end(), isCapital);
  const std::string_view number(digits, static_cast<std::size_t>(field.end() - digits));
  return !number.empty() && number.find_first_not_of(kFigures) == std::string_view::npos;
}

/// What is in a line after the columns of a statement: in a line of 80 bytes the last eight.
std::string_view numberOf(std::string_view line) {
  if (line.size() == kStatementColumns + kNumberColumns) return line.substr(kStatementColumns);
  return line.substr(host::bytesOfColumns(line, kStatementColumns));
}

bool isNumberedCard(std::string_view line) {
  const std::string_view number = numberOf(line);
  return number.size() == kNumberColumns && isSequenceNumber(number);
}

bool isValue(const Token& token) { return token.kind != TokenKind::Mark; }

}  // namespace

StatementReader::StatementReader(ByteSource bytes, const Words& words, FindingSink report,
                                 Cards cards)
    : lines_(std::move(bytes)),
      words_(words),
      cards_(cards),
      report_(std::move(report)),
      hasSequenceNumbers_(cards == Cards::Always) {}

StatementReader::StatementReader(ByteSource bytes, const Words& words, Cards cards)
    : lines_(std::move(bytes)),
      words_(words),
      cards_(cards),
      hasSequenceNumbers_(cards == Cards::Always) {}

bool StatementReader::nextLine() {
  if (!lines_.next(line_)) return false;
  if (report_ && lines_.isCut()) {
    report_({Rule::LongLine, {lines(), static_cast<long>(TextLines::kLongestLine) + 1}, 1, "", ""});
  }
  const bool isFirst = cards_ == Cards::Recognised && lines() == 1;
  if (isFirst) hasSequenceNumbers_ = isNumberedCard(line_);
  if (hasSequenceNumbers_) {
    const std::size_t width = numberOf(line_).size();
    if (width <= kNumberColumns) line_.remove_suffix(width);
  }
  line_ = withoutBlanks(line_);
  return true;
}

void StatementReader::begin(Statement& statement) const {
  statement.place = {lines(), static_cast<long>(blanksBefore(line_)) + 1};
  statement.text.clear();
  statement.tokens.clear();
  statement.joints.clear();
  statement.word.clear();
  statement.isCut = false;
}

// Reads on to the line that the next statement begins with; false when there is none.
bool StatementReader::findBegin() {
  while (!isPending_ || line_.empty()) {
    isPending_ = nextLine();
    if (!isPending_) return false;
  }
  return true;
}

bool StatementReader::peek(std::string_view& line) {
  if (!findBegin() || lines_.isCut()) return false;
  line = line_;
  return true;
}

bool StatementReader::next(Statement& statement) {
  if (!findBegin()) return false;
  isPending_ = false;
  begin(statement);
  read(statement);
  statement.isCut = statement.isCut || lines_.isCut();
  if (report_) checkStatement(statement, words_, report_);
  return true;
}

void StatementReader::read(Statement& statement) {
  const auto first = static_cast<std::size_t>(statement.place.column) - 1;
  const std::string_view content = line_.substr(first);
  const WordRow* const word = words_.textWordOf(content);
  statement.isText = word != nullptr || hasComment(content, 0);
  if (statement.isText) {
    readText(statement, word);
  } else if (report_) {
    readTokens(statement);
  } else {
    readBytes(statement);
  }
}

void StatementReader::readText(Statement& statement, const WordRow* word) {
  if (report_) checkCharacters(line_, lines(), true, report_);
  const std::size_t first = static_cast<std::size_t>(statement.place.column) - 1;
  statement.text = line_.substr(first);
  if (word == nullptr) return;
  statement.word = line_.substr(first, line_.find_first_of(" \t,/()=$", first) - first);
}

void StatementReader::readTokens(Statement& statement) {
  checkCharacters(line_, lines(), false, report_);
  LineEnd end = addLine(line_, lines(), statement, report_);
  if (!statement.tokens.empty() && statement.tokens.front().kind == TokenKind::Word) {
    statement.word = statement.textOf(statement.tokens.front());
  }
  while (end == LineEnd::Continued && continues()) {
    checkCharacters(line_, lines(), false, report_);
    const std::size_t first = statement.tokens.size();
    statement.joints.push_back({statement.text.size(), lines()});
    end = addLine(line_, lines(), statement, report_);
    checkJoint(statement, first);
  }
}

void StatementReader::readBytes(Statement& statement) {
  bool isOpen = addBytes(statement);
  while (isOpen && continues()) {
    statement.joints.push_back({statement.text.size(), lines()});
    isOpen = addBytes(statement);
  }
}

// Adds a line without the $ that continues it; true when there is one. $$ begins a comment.
bool StatementReader::addBytes(Statement& statement) const {
  const std::size_t dollar = line_.find('$');
  const bool isOpen = dollar != std::string_view::npos && !hasComment(line_, dollar);
  statement.isCut = statement.isCut || statement.text.size() + line_.size() > kLongestStatement;
  if (!statement.isCut) statement.text.append(isOpen ? line_.substr(0, dollar) : line_);
  return isOpen;
}

// Reads the line that continues a statement; false when there is none.
bool StatementReader::continues() {
  const TextPlace mark{lines(), static_cast<long>(line_.size())};
  if (!nextLine()) {
    reportOpen(mark);
    return false;
  }
  if (!line_.empty() && !hasComment(line_, blanksBefore(line_))) return true;
  reportOpen(mark);
  isPending_ = true;
  return false;
}

void StatementReader::reportOpen(const TextPlace& place) const {
  if (!report_) return;
  report_({Rule::OpenContinuation, place, 1, "", ""});
}

// Compares the last token of a line with the first of the line that continues it.
void StatementReader::checkJoint(const Statement& statement, std::size_t first) const {
  const auto& tokens = statement.tokens;
  if (first == 0 || first >= tokens.size() || !isValue(tokens[first])) return;
  const Token& token = tokens[first];
  const std::string_view text = statement.textOf(token);
  const bool beginsStatement =
      first + 1 == tokens.size() || statement.isMark(tokens[first + 1], '/');
  const std::size_t width = text.size();
  if (beginsStatement && token.kind == TokenKind::Word && words_.find(text) != nullptr) {
    report_({Rule::SwallowedStatement, token.place, width, std::string(text), line_});
  } else if (isValue(tokens[first - 1])) {
    report_({Rule::CutArgument, token.place, width, std::string(text), line_});
  }
}

}  // namespace verify
