#include "verify/ExpectedStatement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "verify/PrintedNumber.h"

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

/// Walks along a statement of a text.
class Matcher {
 public:
  Matcher(const ExpectedStatement& expected, const Statement& found, const host::Consumer& consumer)
      : expected_(expected), found_(found), consumer_(consumer), text_(found.text) {}

  std::optional<Mismatch> match() {
    skipBlanks();
    for (const Part& part : expected_.parts) {
      if (part.kind == Part::Kind::Anything) return std::nullopt;
      const bool isSame =
          part.kind == Part::Kind::Number ? matchNumber(part.number) : matchLiteral(part.text);
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
    mismatch_ = {found_.placeOf(at_), shown(text_), expected_.text()};
    return false;
  }

  /// True when the characters themselves are there; they begin with none that may be skipped.
  bool takeSame(std::string_view text) {
    if (text.empty() || isBlank(text.front()) || text_.size() - at_ < text.size()) return false;
    const char* const found = text_.data() + at_;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (found[i] != text[i]) return false;
    }
    at_ += text.size();
    isAfterNumber_ = false;
    return true;
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

  /// Blanks count between the characters of a text, and nowhere else.
  bool matchText(std::string_view text) {
    if (takeSame(text)) return true;
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
    PrintedNumber number;
    std::size_t length = readShortNumber(lineFrom(at_), number);
    if (length == 0) {
      length = lengthOfRun();
      const auto read = readNumber(text_.substr(at_, length));
      if (!read) return differ();
      number = *read;
    }
    if (!isSame(number, due)) {
      mismatch_ = {found_.placeOf(at_), std::string(text_.substr(at_, length)), shown(due)};
      return false;
    }
    at_ += length;
    return true;
  }

  /// The text from there to the end of the line: a number does not go on in the next one.
  [[nodiscard]] std::string_view lineFrom(std::size_t offset) const {
    for (const Joint& joint : found_.joints) {
      if (joint.offset > offset) return text_.substr(offset, joint.offset - offset);
    }
    return text_.substr(offset);
  }

  /// How long what looks like a number is.
  [[nodiscard]] std::size_t lengthOfRun() const {
    const std::string_view line = lineFrom(at_);
    return std::min(line.find_first_not_of("0123456789+-.eE"), line.size());
  }

  static bool isSame(const PrintedNumber& number, double due) {
    if (std::abs(due) < kPrintedAsZero) due = 0.0;
    constexpr double kRounding = 4 * std::numeric_limits<double>::epsilon();
    const double doubt = number.halfUnit * (1.0 + 1e-9) + kRounding * std::abs(due);
    return std::abs(number.value - due) <= doubt;
  }

  const ExpectedStatement& expected_;
  const Statement& found_;
  const host::Consumer& consumer_;
  std::string_view text_;
  std::size_t at_ = 0;
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

std::optional<Mismatch> compare(const ExpectedStatement& expected, const Statement& found,
                                const host::Consumer& consumer) {
  return Matcher(expected, found, consumer).match();
}

}  // namespace verify
