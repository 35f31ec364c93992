#include "post/listing/CanonicalCall.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "language/number/ShortDecimal.h"
#include "language/syntax/Characters.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

using ppword::CharacterTable;

constexpr std::size_t kLongestName = 64;
constexpr CharacterTable kBlank(" ");
constexpr CharacterTable kDigits("0123456789");
constexpr CharacterTable kNameLetters("ABCDEFGHIJKLMNOPQRSTUVWXYZ_0123456789.");
constexpr CharacterTable kBlockLetters("0123456789.");
constexpr CharacterTable kSeparators(", ");
/// All below the blank but the tab, and DEL.
constexpr CharacterTable kControls(std::string_view(
    "\0\x01\x02\x03\x04\x05\x06\x07\b\n\v\f\r\x0e\x0f\x10\x11\x12\x13\x14\x15\x16\x17\x18\x19"
    "\x1a\x1b\x1c\x1d\x1e\x1f\x7f",
    32));

std::string hexadecimal(char byte) {
  constexpr std::string_view kHex = "0123456789abcdef";
  const auto value = static_cast<unsigned char>(byte);
  return {'0', 'x', kHex[value >> 4U], kHex[value & 0xfU]};
}

/// A piece of the input for a message, in quotes and never long.
std::string quote(std::string_view text) {
  constexpr std::size_t kLongest = 40;
  return std::string("'").append(text.substr(0, kLongest)) +
         (text.size() > kLongest ? "...'" : "'");
}

/// Walks along a line; a cursor never leaves it.
class Cursor {
 public:
  explicit Cursor(std::string_view line) : line_(line) {}

  [[nodiscard]] std::size_t at() const { return at_; }
  [[nodiscard]] bool atEnd() const { return at_ == line_.size(); }
  [[nodiscard]] std::string_view rest() const { return {line_.data() + at_, line_.size() - at_}; }
  /// Takes the next letters that are in a set.
  std::string_view take(const CharacterTable& set) {
    const std::size_t first = at_;
    std::size_t end = at_;
    while (end < line_.size() && set.holds(line_[end])) ++end;
    at_ = end;
    return {line_.data() + first, end - first};
  }
  bool takeOne(char letter) {
    if (atEnd() || line_[at_] != letter) return false;
    ++at_;
    return true;
  }
  void advance(std::size_t count) { at_ += count; }

 private:
  std::string_view line_;
  std::size_t at_ = 0;
};

void refuseBinary(std::string_view line, const LinePlace& place) {
  const std::size_t control = kControls.firstIn(line);
  if (control == line.size()) return;
  place.refuse(control, "the byte " + hexadecimal(line[control]) +
                            " is not text; this is not a listing, or it is damaged");
}

long takeRunningNumber(Cursor& cursor, const LinePlace& place) {
  cursor.take(kBlank);
  const std::size_t at = cursor.at();
  const std::string_view digits = cursor.take(kDigits);
  long number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool numbered = !digits.empty() && error == std::errc() && !cursor.take(kBlank).empty();
  if (numbered && cursor.takeOne('N')) return number;
  place.refuse(
      at,
      "not a call of a canonical listing (running number, block number, call); to keep the "
      "output of (print,...) out of the listing, use: rs274 -g PROGRAM LISTING");
}

std::string_view takeName(Cursor& cursor, const LinePlace& place) {
  const std::size_t at = cursor.at();
  const std::string_view name = cursor.take(kNameLetters);
  if (name.empty() || kDigits.holds(name.front())) {
    place.refuse(at, "the name of a call is expected");
  }
  if (name.size() > kLongestName) place.refuse(at, "the name of the call is too long");
  return name;
}

/// Reads one list of arguments from left to right.
class ArgumentReader {
 public:
  ArgumentReader(const CanonicalCall& call, std::string_view shape, const LinePlace& place)
      : call_(call), shape_(shape), place_(place), cursor_(call.arguments) {}

  CanonicalArguments read() {
    cursor_.take(kBlank);
    for (std::size_t index = 0; index < shape_.size(); ++index) {
      if (cursor_.atEnd()) refuseCount(std::to_string(index));
      readOne(index);
      takeSeparator();
    }
    if (!cursor_.atEnd()) refuseCount("more");
    return values_;
  }

 private:
  void readOne(std::size_t index) {
    values_.at[index] = call_.argumentsAt + cursor_.at();
    switch (shape_[index]) {
      case 'n':
        values_.numbers[index] = number();
        return;
      case 'i':
        values_.numbers[index] = static_cast<double>(whole());
        return;
      case 'w':
        values_.text = cursor_.take(kNameLetters);
        return;
      default:
        values_.text = quoted();
    }
  }

  double number() {
    const auto value = shortNumber();
    return value ? *value : longNumber();
  }

  /// A number as listings print them; nothing, and nothing taken, for any other text.
  std::optional<double> shortNumber() {
    const std::string_view rest = cursor_.rest();
    const char* const end = rest.data() + rest.size();
    const bool isNegative = rest.starts_with('-');
    const char* at = rest.data() + (isNegative ? 1 : 0);
    const auto value = ppword::readShortDecimal(at, end);
    if (!value || (at != end && !kSeparators.holds(*at))) return std::nullopt;
    cursor_.advance(static_cast<std::size_t>(at - rest.data()));
    return isNegative ? -*value : *value;
  }

  double longNumber() {
    const std::string_view text = piece();
    double value = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (error == std::errc::invalid_argument || end != text.data() + text.size()) {
      refuse(quote(text) + " is not a number");
    }
    if (error != std::errc() || !std::isfinite(value)) {
      refuse(quote(text) + " is not a finite number");
    }
    cursor_.advance(text.size());
    return value;
  }

  int whole() {
    const std::string_view text = piece();
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
      refuse(quote(text) + " is not a whole number");
    }
    cursor_.advance(text.size());
    return value;
  }

  std::string_view quoted() {
    const std::string_view text = cursor_.rest();
    if (text.size() < 2 || !text.starts_with('"') || !text.ends_with('"')) {
      refuse("its text is not in quotes");
    }
    cursor_.advance(text.size());
    return text.substr(1, text.size() - 2);
  }

  /// The text up to the next separator.
  [[nodiscard]] std::string_view piece() const {
    const std::string_view rest = cursor_.rest();
    return rest.substr(0, kSeparators.firstIn(rest));
  }

  /// Blanks, with one comma among them at most.
  void takeSeparator() {
    cursor_.take(kBlank);
    if (!cursor_.takeOne(',')) return;
    cursor_.take(kBlank);
    if (cursor_.atEnd()) refuse("argument missing after the last comma");
  }

  [[noreturn]] void refuse(const std::string& message) const {
    place_.refuse(call_.argumentsAt + cursor_.at(), std::string(call_.name) + ": " + message);
  }

  [[noreturn]] void refuseCount(const std::string& found) const {
    const std::size_t expected = shape_.size();
    refuse("expected " + std::to_string(expected) +
           (expected == 1 ? " argument, found " : " arguments, found ") + found);
  }

  const CanonicalCall& call_;
  std::string_view shape_;
  const LinePlace& place_;
  Cursor cursor_;
  CanonicalArguments values_;
};

}  // namespace

void LinePlace::refuse(std::size_t offset, std::string_view message) const {
  const long start = line > 0 ? 1 : 0;
  throw InputError(file, line, hasColumns ? static_cast<long>(offset) + 1 : start, message);
}

CanonicalCall parseCall(std::string_view line, const LinePlace& place) {
  refuseBinary(line, place);
  Cursor cursor(line);
  CanonicalCall call;
  call.runningNumber = takeRunningNumber(cursor, place);
  call.block = cursor.take(kBlockLetters);
  if (call.block.empty()) {
    place.refuse(cursor.at(), "'.....' or a block number is expected after 'N'");
  }
  cursor.take(kBlank);
  call.nameAt = cursor.at();
  call.name = takeName(cursor, place);
  if (!cursor.takeOne('(')) place.refuse(cursor.at(), "'(' is expected after the name of the call");
  if (cursor.atEnd() || line.back() != ')') {
    place.refuse(line.size(), "the line does not end with ')'; it is cut short or damaged");
  }
  call.argumentsAt = cursor.at();
  call.arguments = line.substr(call.argumentsAt, line.size() - 1 - call.argumentsAt);
  return call;
}

CanonicalArguments readArguments(const CanonicalCall& call, std::string_view shape,
                                 const LinePlace& place) {
  return ArgumentReader(call, shape, place).read();
}

}  // namespace host
