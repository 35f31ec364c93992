#include "verify/ExpectedStatement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "verify/LineTokens.h"

namespace verify {
namespace {

using Part = ExpectedStatement::Part;

/// A number closer to 0 is printed as 0.
constexpr double kPrintedAsZero = 1e-6;
constexpr std::size_t kLongestShown = 60;

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string shown(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(" \t"), text.size());
  text.remove_prefix(first);
  return text.size() <= kLongestShown ? std::string(text)
                                      : std::string(text.substr(0, kLongestShown)) + "...";
}

std::string shown(double number) {
  std::array<char, 32> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                          std::chars_format::general, 10);
  return {digits.data(), end};
}

// --- What is expected ----------------------------------------------------------------------------

/// The last character that is printed, without blanks; 0 for none.
char lastOf(const ExpectedStatement& statement) {
  for (auto part = statement.parts.rbegin(); part != statement.parts.rend(); ++part) {
    if (part->kind != Part::Kind::Literal) return '0';
    const auto last = std::find_if_not(part->text.rbegin(), part->text.rend(), isBlank);
    if (last != part->text.rend()) return *last;
  }
  return '\0';
}

char firstOf(const ExpectedStatement& statement) {
  for (const Part& part : statement.parts) {
    if (part.kind != Part::Kind::Literal) return '0';
    const auto first = std::ranges::find_if_not(part.text, isBlank);
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

/// True when the engine writes a $ between two lines.
bool isContinued(const ExpectedStatement& statement, const ExpectedStatement& next) {
  return (lastOf(statement) == ',' || firstOf(next) == ',') && !hasSlash(next);
}

Part partOf(const Value& value, bool isWord, const DocumentWords& words) {
  if (value.kind == Value::Kind::Number) return {Part::Kind::Number, "", value.number};
  if (value.kind == Value::Kind::Absent) return {Part::Kind::Literal, words.unevaluated};
  // References in the value of a word are replaced too.
  const bool isFollowed =
      value.kind == Value::Kind::Text && !(isWord && value.text.find('%') != std::string::npos);
  return isFollowed ? Part{Part::Kind::Literal, value.text} : Part{Part::Kind::Anything, ""};
}

/// A line that computes: that can change all of it but its first word.
ExpectedStatement computedLine(const TableLine& line) {
  ExpectedStatement statement;
  statement.word = line.word;
  statement.parts = {{Part::Kind::Literal, line.word}, {Part::Kind::Anything, ""}};
  statement.hasValue = true;
  return statement;
}

ExpectedStatement expectedLine(const TableLine& line, const InputValues& values,
                               const DocumentWords& words) {
  if (line.isComputed()) return computedLine(line);
  ExpectedStatement statement;
  statement.word = line.word;
  statement.isText = line.isText || line.word.empty();
  statement.hasValue = line.hasReference();
  statement.parts.reserve(line.pieces.size());
  for (const Piece& piece : line.pieces) {
    const bool isLiteral = piece.kind == Piece::Kind::Literal;
    statement.parts.push_back(isLiteral ? Part{Part::Kind::Literal, piece.text}
                                        : partOf(values.valueOf(piece.text), piece.isWord, words));
    if (statement.isOpen()) break;
  }
  return statement;
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
  if (lastOf(statement) == ',') statement.parts.back().text.pop_back();
}

// --- What is found -------------------------------------------------------------------------------

/// Walks along a statement of a text.
class Matcher {
 public:
  Matcher(const ExpectedStatement& expected, const Statement& found)
      : expected_(expected), found_(found), text_(found.text) {}

  std::optional<Mismatch> match() {
    skipBlanks();
    for (const Part& part : expected_.parts) {
      if (part.kind == Part::Kind::Anything) return std::nullopt;
      const bool isSame =
          part.kind == Part::Kind::Number ? matchNumber(part.number) : matchText(part.text);
      if (!isSame) return mismatch_;
    }
    skipBlanks();
    if (at_ < text_.size()) differ();
    return mismatch_;
  }

 private:
  void skipBlanks() {
    while (at_ < text_.size() && isBlank(text_[at_])) ++at_;
  }

  bool differ() {
    mismatch_ = {placeOf(at_), shown(text_), expected_.text()};
    return false;
  }

  /// Blanks count between the characters of a text, and nowhere else.
  bool matchText(std::string_view text) {
    if (isAfterNumber_) {
      skipBlanks();
      while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    }
    for (const char due : text) {
      if (!expected_.isText) skipBlanks();
      if (isBlank(due) && isFree()) continue;
      if (at_ == text_.size() || text_[at_] != due) return differ();
      ++at_;
    }
    isAfterNumber_ = isAfterNumber_ && text.empty();
    return true;
  }

  /// True where a blank more or less means nothing: at the end, and outside of a text.
  [[nodiscard]] bool isFree() const { return !expected_.isText || at_ == text_.size(); }

  bool matchNumber(double due) {
    skipBlanks();
    isAfterNumber_ = true;
    const Token* const token = tokenAt(at_);
    const std::size_t end = token != nullptr ? at_ + token->length : endOfRun();
    const std::string_view run = text_.substr(at_, end - at_);
    const auto number =
        token != nullptr ? PrintedNumber{token->number, token->halfUnit} : readNumber(run);
    if (!number) return differ();
    if (!isSame(*number, due)) {
      mismatch_ = {placeOf(at_), std::string(run), shown(due)};
      return false;
    }
    at_ = end;
    return true;
  }

  /// The number that begins there; null where the statement has no tokens, or another one there.
  const Token* tokenAt(std::size_t offset) {
    while (token_ < found_.tokens.size() && found_.tokens[token_].offset < offset) ++token_;
    if (token_ == found_.tokens.size()) return nullptr;
    const Token& token = found_.tokens[token_];
    return token.kind == TokenKind::Number && token.offset == offset ? &token : nullptr;
  }

  /// Where what looks like a number ends.
  [[nodiscard]] std::size_t endOfRun() const {
    return std::min(text_.find_first_not_of("0123456789+-.eE", at_), text_.size());
  }

  static bool isSame(const PrintedNumber& number, double due) {
    if (std::abs(due) < kPrintedAsZero) due = 0.0;
    constexpr double kRounding = 4 * std::numeric_limits<double>::epsilon();
    const double doubt = number.halfUnit * (1.0 + 1e-9) + kRounding * std::abs(due);
    return std::abs(number.value - due) <= doubt;
  }

  /// The place of a byte of the statement's text.
  [[nodiscard]] TextPlace placeOf(std::size_t offset) const {
    const Token* nearest = nullptr;
    for (const Token& token : found_.tokens) {
      if (token.offset <= offset) nearest = &token;
    }
    if (found_.isText) {
      return {found_.place.line, found_.place.column + static_cast<long>(offset)};
    }
    if (nearest == nullptr) return found_.place;
    return {nearest->place.line,
            nearest->place.column + static_cast<long>(offset - nearest->offset)};
  }

  const ExpectedStatement& expected_;
  const Statement& found_;
  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t token_ = 0;
  /// Blanks are skipped on both sides, at the beginning too.
  bool isAfterNumber_ = true;
  std::optional<Mismatch> mismatch_;
};

}  // namespace

bool ExpectedStatement::isOpen() const {
  return !parts.empty() && parts.back().kind == Part::Kind::Anything;
}

std::string ExpectedStatement::text() const {
  std::string all;
  for (const Part& part : parts) {
    if (part.kind == Part::Kind::Literal) all += part.text;
    if (part.kind == Part::Kind::Number) all += shown(part.number);
    if (part.kind == Part::Kind::Anything) all += "...";
  }
  return shown(all);
}

std::vector<ExpectedStatement> expectedStatements(const TableLines::Lines& lines,
                                                  const InputValues& values,
                                                  const DocumentWords& words, bool dropsComma) {
  std::vector<ExpectedStatement> statements;
  bool isJoined = false;
  for (const TableLine& line : lines) {
    ExpectedStatement next = expectedLine(line, values, words);
    const bool isMarked =
        !statements.empty() && !line.isText && isContinued(statements.back(), next);
    if (isJoined || isMarked) {
      append(statements.back(), next);
    } else {
      statements.push_back(std::move(next));
    }
    isJoined = line.isContinued;
  }
  if (dropsComma && lines.size() == 1) dropComma(statements.front());
  std::erase_if(statements, isEmpty);
  return statements;
}

std::optional<Mismatch> compare(const ExpectedStatement& expected, const Statement& found) {
  return Matcher(expected, found).match();
}

}  // namespace verify
