#include "verify/ExpectedStatements.h"

#include <algorithm>
#include <utility>

namespace verify {
namespace {

using Part = ExpectedStatement::Part;

/// The instruction that has no comma at its end where it has no unit.
constexpr std::string_view kDwell = "NC_DELAY";

bool isNoBlank(char c) { return c != ' ' && c != '\t'; }

/// The last character that is printed, without blanks; 0 for none.
char lastOf(const ExpectedStatement& statement) {
  for (auto part = statement.parts.rbegin(); part != statement.parts.rend(); ++part) {
    if (part->kind != Part::Kind::Literal) return '0';
    const auto last = std::find_if(part->text.rbegin(), part->text.rend(), isNoBlank);
    if (last != part->text.rend()) return *last;
  }
  return '\0';
}

char firstOf(const ExpectedStatement& statement) {
  for (const Part& part : statement.parts) {
    if (part.kind != Part::Kind::Literal) return '0';
    const auto first = std::ranges::find_if(part.text, isNoBlank);
    if (first != part.text.end()) return *first;
  }
  return '\0';
}

/// An empty line is not a statement.
bool isEmpty(const ExpectedStatement& statement) { return firstOf(statement) == '\0'; }

bool hasSlash(const ExpectedStatement& statement) {
  return std::ranges::any_of(
      statement.parts, [](const Part& part) { return part.text.find('/') != std::string::npos; });
}

/// True when the engine writes a $ between a line that ends with a character and the next one.
bool isContinued(char last, const ExpectedStatement& next) {
  return (last == ',' || firstOf(next) == ',') && !hasSlash(next);
}

Part partOf(const Value& value, const Piece& piece, const DocumentWords& words) {
  if (value.kind == Value::Kind::Number) return {Part::Kind::Number, {}, value.number, &piece};
  if (value.kind == Value::Kind::Absent) return {Part::Kind::Literal, words.unevaluated};
  // References in the value of a word are replaced too.
  const bool isFollowed = value.kind == Value::Kind::Text &&
                          !(piece.isWord && value.text.find('%') != std::string::npos);
  return isFollowed ? Part{Part::Kind::Literal, value.text} : Part{Part::Kind::Anything};
}

Part partOf(const Piece& piece, const InputValues& values, const DocumentWords& words) {
  if (piece.kind == Piece::Kind::Literal) return {Part::Kind::Literal, piece.text};
  if (const double* const number = values.coordinateOf(piece.source)) {
    return {Part::Kind::Number, {}, *number, &piece};
  }
  return partOf(values.valueOf(piece.source, piece.text), piece, words);
}

/// A line that computes: that can change all of it but its first word.
void setComputed(const TableLine& line, ExpectedStatement& statement) {
  statement.isText = false;
  statement.hasValue = true;
  statement.parts = {{Part::Kind::Literal, line.word}, {Part::Kind::Anything}};
}

void set(const TableLine& line, const InputValues& values, const DocumentWords& words,
         ExpectedStatement& statement) {
  statement.isKnown = line.isKnown;
  statement.isDoubtful = false;
  if (line.isComputed()) return setComputed(line, statement);
  statement.isText = line.isText || line.word.empty();
  statement.hasValue = line.hasReference;
  statement.parts.resize(line.pieces.size());
  for (std::size_t at = 0; at < line.pieces.size(); ++at) {
    Part& part = statement.parts[at];
    part = partOf(line.pieces[at], values, words);
    if (part.kind == Part::Kind::Anything) return statement.parts.resize(at + 1);
  }
}

void append(ExpectedStatement& statement, const ExpectedStatement& next) {
  if (statement.isOpen()) return;
  statement.parts.insert(statement.parts.end(), next.parts.begin(), next.parts.end());
  statement.hasValue = statement.hasValue || next.hasValue;
}

void dropComma(ExpectedStatement& statement) {
  while (!statement.parts.empty() && statement.parts.back().text.empty() &&
         statement.parts.back().kind == Part::Kind::Literal) {
    statement.parts.pop_back();
  }
  if (lastOf(statement) == ',') statement.parts.back().text.remove_suffix(1);
}

}  // namespace

ExpectedStatement& ExpectedStatements::add() {
  if (count_ == all_.size()) all_.emplace_back();
  return all_[count_++];
}

void ExpectedStatements::addLine(const TableLine& line, bool isJoined, const InputValues& values,
                                 const DocumentWords& words) {
  ExpectedStatement& next = add();
  verify::set(line, values, words, next);
  const char last = std::exchange(last_, lastOf(next));
  if (count_ < 2) return;
  const bool isMarked = !line.isText && isContinued(last, next);
  if (!isJoined && !isMarked) return;
  ExpectedStatement& before = all_[count_ - 2];
  before.isDoubtful = before.isDoubtful || (!isJoined && line.isKnown);
  append(before, next);
  --count_;
}

void ExpectedStatements::build(const InstructionLines& lines, const InputValues& values,
                               const DocumentWords& words) {
  count_ = 0;
  bool isJoined = false;
  for (const TableLine& line : lines.lines) {
    addLine(line, isJoined, values, words);
    isJoined = line.isContinued;
  }
  if (lines.name == kDwell && lines.lines.size() == 1) dropComma(all_.front());
  const auto end = all_.begin() + static_cast<std::ptrdiff_t>(count_);
  count_ = static_cast<std::size_t>(std::remove_if(all_.begin(), end, isEmpty) - all_.begin());
}

void ExpectedStatements::finish(const InputValues& values, const host::Consumer& consumer) {
  numbers_.clear();
  for (std::size_t at = 0; at < count_; ++at) {
    ExpectedStatement& statement = all_[at];
    statement.fitsLine = statement.isOneLine(consumer);
    for (Part& part : statement.parts) {
      if (part.piece != nullptr)
        numbers_.push_back({&part, values.coordinateOf(part.piece->source)});
    }
  }
}

// Sets the numbers anew; false where one has become something else.
bool ExpectedStatements::renew(const InputValues& values) {
  for (const auto& [part, coordinate] : numbers_) {
    if (coordinate != nullptr) {
      part->number = *coordinate;
      continue;
    }
    const Value value = values.valueOf(part->piece->source, part->piece->text);
    if (value.kind != Value::Kind::Number) return false;
    part->number = value.number;
  }
  return true;
}

void ExpectedStatements::set(const InstructionLines& lines, const InputValues& values,
                             const DocumentWords& words, const host::Consumer& consumer) {
  if (isRenewable_ && renew(values)) return;
  build(lines, values, words);
  finish(values, consumer);
  isRenewable_ = numbers_.size() == lines.references;
}

}  // namespace verify
