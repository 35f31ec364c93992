#include "verify/ExpectedStatement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <span>
#include <utility>

#include "verify/PrintedNumber.h"

namespace verify {
namespace {

using Part = ExpectedStatement::Part;

/// A number closer to 0 is printed as 0.
constexpr double kPrintedAsZero = 1e-6;
constexpr std::size_t kLongestShown = 60;

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

/// True when a number was printed from another one.
bool isPrintOf(const PrintedNumber& number, double due) {
  if (std::abs(due) < kPrintedAsZero) due = 0.0;
  constexpr double kRounding = 4 * std::numeric_limits<double>::epsilon();
  const double doubt = number.halfUnit * (1.0 + 1e-9) + kRounding * std::abs(due);
  return std::abs(number.value - due) <= doubt;
}

bool takesAll(const host::Consumer& consumer, std::string_view text) {
  if (consumer.characters == host::Consumer::Characters::Any) return true;
  for (std::size_t at = 0; at < text.size();) {
    const std::string_view character = host::characterAt(text, at);
    if (!takes(consumer, character)) return false;
    at += character.size();
  }
  return true;
}

/// Takes characters off a text that begins with them.
bool take(std::string_view characters, std::string_view& text) {
  if (text.size() < characters.size()) return false;
  for (std::size_t at = 0; at < characters.size(); ++at) {
    if (text[at] != characters[at]) return false;
  }
  text.remove_prefix(characters.size());
  return true;
}

void takeBlanks(std::string_view& text) { text.remove_prefix(blanksBefore(text)); }

bool isMark(char c) { return c == ',' || c == '/' || c == '(' || c == ')' || c == '='; }

/// Takes a short number off a text, and the blanks before it.
bool takePrintOf(double due, std::string_view& text) {
  takeBlanks(text);
  PrintedNumber number;
  const std::size_t length = readShortNumber(text, number);
  text.remove_prefix(length);
  return length > 0 && isPrintOf(number, due);
}

/// A line of a statement, from 0.
std::string_view lineOf(std::string_view text, std::span<const Joint> joints, std::size_t line) {
  if (joints.empty()) return text;
  const std::size_t begin = line == 0 ? 0 : joints[line - 1].offset;
  return text.substr(begin, line == joints.size() ? text.npos : joints[line].offset - begin);
}

/// Walks along a statement of a text.
class Matcher {
 public:
  Matcher(const ExpectedStatement& expected, const Statement& found, const host::Consumer& consumer,
          Mismatch& mismatch)
      : expected_(expected),
        found_(found),
        consumer_(consumer),
        rest_(found.text),
        mismatch_(mismatch) {}

  /// False where they differ; the mismatch is then set.
  bool match() {
    takeBlanks(rest_);
    for (const Part& part : expected_.parts) {
      if (part.kind == Part::Kind::Anything) return true;
      const bool isSame =
          part.kind == Part::Kind::Number ? matchNumber(part.number) : matchLiteral(part.text);
      if (!isSame) return false;
    }
    takeBlanks(rest_);
    return (rest_.empty() && !found_.isCut) || differ();
  }

 private:
  /// Where the rest begins.
  [[nodiscard]] std::size_t offset() const { return found_.text.size() - rest_.size(); }

  bool differ() {
    mismatch_ = {found_.placeOf(offset()), shown(found_.text), expected_.text()};
    return false;
  }

  bool matchLiteral(std::string_view text) {
    if (consumer_.characters == host::Consumer::Characters::Any) return matchText(text);
    std::string written;
    for (std::size_t at = 0; at < text.size();) {
      const std::string_view character = host::characterAt(text, at);
      at += character.size();
      if (takes(consumer_, character)) {
        written += character;
      } else {
        written += host::replacementOf(character, consumer_);
      }
    }
    return matchText(written);
  }

  bool matchText(std::string_view text) {
    return expected_.isText ? matchCharacters(text) : matchWords(text);
  }

  /// Of a text every character counts; a number may have more blanks on both sides.
  bool matchCharacters(std::string_view text) {
    const std::size_t due = std::exchange(isAfterNumber_, false) ? blanksBefore(text) : 0;
    const std::size_t blanks = blanksBefore(rest_);
    if (due > 0 && blanks > due) rest_.remove_prefix(blanks - due);
    for (const char character : text) {
      if (isBlank(character) && rest_.empty()) continue;
      if (!rest_.starts_with(character)) return differ();
      rest_.remove_prefix(1);
    }
    return true;
  }

  /// Outside of a text blanks count only where they part a word.
  bool matchWords(std::string_view text) {
    for (const char character : text) {
      if (isBlank(character)) {
        isBlankDue_ = true;
        continue;
      }
      if (!takeGap(character) || !rest_.starts_with(character)) return differ();
      rest_.remove_prefix(1);
      before_ = character;
      isAfterNumber_ = false;
    }
    return true;
  }

  /// Takes the blanks before a character of a word or a mark; false where a blank too many or too
  /// few makes another word.
  bool takeGap(char character) {
    const std::size_t blanks = blanksBefore(rest_);
    const bool isDue = std::exchange(isBlankDue_, false);
    const bool isInWord = !isMark(before_) && !isMark(character);
    if (isInWord && (isDue ? blanks == 0 : blanks > 0 && !isAfterNumber_)) return false;
    rest_.remove_prefix(blanks);
    return true;
  }

  bool matchNumber(double due) {
    const bool isApart = isBlankDue_ && !isMark(before_);
    if (std::exchange(isBlankDue_, false) && isApart && blanksBefore(rest_) == 0) return differ();
    takeBlanks(rest_);
    isAfterNumber_ = true;
    before_ = '0';
    PrintedNumber number;
    // Half a unit of one beyond all numbers is too.
    bool isBounded = true;
    std::size_t length = readShortNumber(restOfLine(), number);
    if (length == 0) {
      length = lengthOfNumber(restOfLine());
      const auto read = readNumber(rest_.substr(0, length));
      if (!read) return differ();
      number = *read;
      isBounded = number.isInRange && std::isfinite(number.halfUnit);
    }
    if (!isBounded || !isPrintOf(number, due)) {
      mismatch_ = {found_.placeOf(offset()), std::string(rest_.substr(0, length)), shown(due)};
      return false;
    }
    rest_.remove_prefix(length);
    return true;
  }

  /// The text up to the end of the line: a number does not go on in the next one.
  [[nodiscard]] std::string_view restOfLine() const {
    for (const Joint& joint : found_.joints) {
      if (joint.offset > offset()) return rest_.substr(0, joint.offset - offset());
    }
    return rest_;
  }

  const ExpectedStatement& expected_;
  const Statement& found_;
  const host::Consumer& consumer_;
  std::string_view rest_;
  /// A number may be followed by more blanks than are due.
  bool isAfterNumber_ = false;
  /// The character before, outside of a text; at the beginning a mark.
  char before_ = '/';
  /// True when a blank is due between it and the next one.
  bool isBlankDue_ = false;
  Mismatch& mismatch_;
};

}  // namespace

bool ExpectedStatement::isOpen() const {
  return !parts.empty() && parts.back().kind == Part::Kind::Anything;
}

bool ExpectedStatement::mayBeEmpty() const {
  const auto first = std::ranges::find_if(parts, [](const Part& part) {
    return part.kind != Part::Kind::Literal || blanksBefore(part.text) < part.text.size();
  });
  return first != parts.end() && first->kind == Part::Kind::Anything;
}

bool ExpectedStatement::isOneLine(const host::Consumer& consumer) const {
  return std::ranges::all_of(parts, [&](const Part& part) {
    const bool isPlain =
        part.kind != Part::Kind::Anything && part.text.find('$') == std::string_view::npos;
    return isPlain && takesAll(consumer, part.text);
  });
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

bool isPlainly(const ExpectedStatement& expected, std::string_view text,
               std::span<const Joint> joints) {
  std::size_t line = 0;
  std::string_view rest = lineOf(text, joints, line);
  for (const Part& part : expected.parts) {
    if (part.kind == Part::Kind::Anything) return true;
    if (rest.empty() && line < joints.size()) rest = lineOf(text, joints, ++line);
    const bool isSame =
        part.kind == Part::Kind::Number ? takePrintOf(part.number, rest) : take(part.text, rest);
    if (!isSame) return false;
  }
  return rest.empty() && line == joints.size();
}

bool isSame(const ExpectedStatement& expected, const Statement& found,
            const host::Consumer& consumer, Mismatch& mismatch) {
  const bool takesAny = consumer.characters == host::Consumer::Characters::Any;
  const bool isWhole = takesAny && !found.isCut;
  if (isWhole && isPlainly(expected, found.text, found.joints)) return true;
  return Matcher(expected, found, consumer, mismatch).match();
}

}  // namespace verify
