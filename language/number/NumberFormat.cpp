#include "language/number/NumberFormat.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "language/number/FloatDigits.h"
#include "language/number/PlainFixed.h"

namespace ppword {
namespace {

constexpr int kMostDigitsOfASize = 3;
/// Space before the digits for the widest padding, a sign and "0x".
constexpr std::size_t kPrefixCapacity = 1008;

bool isDigit(char character) { return character >= '0' && character <= '9'; }
char lower(char character) { return static_cast<char>(character | 0x20); }
bool isConversion(char character) {
  const char kind = lower(character);
  return kind == 'f' || kind == 'e' || kind == 'g' || kind == 'a';
}

/// Reads a number of at most three digits, none included; -1 when there are more.
int readSize(const char*& at, const char* end) {
  int size = 0;
  const char* const first = at;
  for (; at != end && isDigit(*at); ++at) {
    if (at - first == kMostDigitsOfASize) return -1;
    size = size * 10 + (*at - '0');
  }
  return size;
}

/// Position of the first "%" that is not half of a "%%"; the end when there is none.
const char* findConversion(const char* at, const char* end) {
  for (; at != end; ++at) {
    if (*at != '%') continue;
    if (at + 1 == end || at[1] != '%') break;
    ++at;
  }
  return at;
}

void appendLiteral(std::string_view text, std::string& out) {
  for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%')) {
    out.append(text, 0, at + 1);
    text.remove_prefix(at + 2);
  }
  out.append(text);
}

/// The rule for numbers that are nearly 0.
double snapped(double value) { return std::fabs(value) < kSnapToZero ? 0.0 : value; }

/// Prints a number with a plain format; false, with `text` untouched, when it is not finite or
/// needs the general way.
bool printPlain(PlainFixed format, double value, std::string& text) {
  std::array<char, PlainFixed::kCapacity> buffer;
  const char* const end = format.print(value, buffer.data());
  if (end == nullptr) return false;
  text.assign(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  return true;
}

/// Prints a finite number with any format; false, with `text` untouched, when it is not acceptable.
[[gnu::noinline]] bool printParsed(std::string_view format, double value, std::string& text) {
  const auto parsed = NumberFormat::parse(format);
  if (!parsed) return false;
  text.clear();
  parsed->append(value, text);
  if (!parsed->hasLiteral()) return true;
  // deliberate: a literal comma of the format becomes a point as a decimal comma would.
  const std::size_t comma = text.find(',');
  if (comma != std::string::npos) text[comma] = '.';
  return true;
}

}  // namespace

std::optional<NumberFormat> NumberFormat::parse(std::string_view text) {
  NumberFormat format;
  return format.read(text) ? std::optional(format) : std::nullopt;
}

bool NumberFormat::read(std::string_view text) {
  const char* const end = text.data() + text.size();
  const char* at = findConversion(text.data(), end);
  before_ = {text.data(), static_cast<std::size_t>(at - text.data())};
  if (at == end) return true;
  at = readConversion(at + 1, end);
  if (at == nullptr || findConversion(at, end) != end) return false;
  after_ = {at, static_cast<std::size_t>(end - at)};
  return true;
}

bool NumberFormat::readFlag(char character) {
  switch (character) {
    case '-':
      return left_ = true;
    case '+':
      return plus_ = true;
    case ' ':
      return blank_ = true;
    case '#':
      return alternate_ = true;
    case '0':
      return zero_ = true;
    default:
      return false;
  }
}

const char* NumberFormat::readConversion(const char* at, const char* end) {
  while (at != end && readFlag(*at)) ++at;
  width_ = readSize(at, end);
  if (at != end && *at == '.') {
    ++at;
    precision_ = readSize(at, end);
    if (precision_ < 0) return nullptr;
  }
  if (at != end && *at == 'l') ++at;
  if (width_ < 0 || at == end || !isConversion(*at)) return nullptr;
  conversion_ = *at;
  return at + 1;
}

void NumberFormat::append(double value, std::string& out) const {
  if (!before_.empty()) appendLiteral(before_, out);
  if (conversion_ != 0) appendNumber(value, out);
  if (!after_.empty()) appendLiteral(after_, out);
}

void NumberFormat::appendNumber(double value, std::string& out) const {
  std::array<char, kPrefixCapacity + kDigitsCapacity> buffer;
  const char conversion = lower(conversion_);
  const std::span<char, kDigitsCapacity> digitsPart(buffer.data() + kPrefixCapacity,
                                                    kDigitsCapacity);
  const std::string_view digits =
      floatDigits(std::fabs(value), conversion, precision_, alternate_, digitsPart);
  // There is space before the digits for all that can precede them.
  char* const place = buffer.data() + (digits.data() - buffer.data());
  char* const first = writeInFront(std::signbit(value), conversion, digits.size(), place);
  char* const last = place + digits.size();
  if (conversion != conversion_) {
    std::transform(first, last, first,
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 0x20) : c; });
  }
  const auto length = static_cast<std::size_t>(last - first);
  out.append(first, length);
  const auto width = static_cast<std::size_t>(width_);
  if (length < width) out.append(width - length, ' ');
}

char* NumberFormat::writeInFront(bool isNegative, char conversion, std::size_t length,
                                 char* digits) const {
  const char sign = isNegative ? '-' : plus_ ? '+' : blank_ ? ' ' : '\0';
  const std::size_t signs = (sign != '\0' ? 1U : 0U) + (conversion == 'a' ? 2U : 0U);
  const auto width = static_cast<std::size_t>(width_);
  const std::size_t padding = !left_ && width > length + signs ? width - length - signs : 0;
  char* first = digits;
  if (zero_) first = std::fill_n(first - padding, padding, '0') - padding;
  if (conversion == 'a') {
    *--first = 'x';
    *--first = '0';
  }
  if (sign != '\0') *--first = sign;
  if (!zero_) first = std::fill_n(first - padding, padding, ' ') - padding;
  return first;
}

bool printNumber(std::string_view format, double value, std::string& text) {
  const auto plain = PlainFixed::parse(format);
  if (plain && printPlain(*plain, value, text)) return true;
  return std::isfinite(value) && printParsed(format, snapped(value), text);
}

bool printNumber(PlainFixed format, double value, std::string& text) {
  if (printPlain(format, value, text)) return true;
  return std::isfinite(value) && printParsed(format.text(), snapped(value), text);
}

bool printsNumbers(std::string_view format) {
  const auto parsed = NumberFormat::parse(format);
  return parsed && parsed->hasConversion();
}

}  // namespace ppword
