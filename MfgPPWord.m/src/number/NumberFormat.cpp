#include "src/number/NumberFormat.h"

#include <array>
#include <cctype>
#include <cmath>

#include "src/number/FloatDigits.h"

namespace ppword {
namespace {

constexpr double kSnapToZero = 1e-6;
constexpr int kMostDigitsOfASize = 3;

bool isDigit(char character) { return character >= '0' && character <= '9'; }
char lower(char character) { return static_cast<char>(character | 0x20); }

/// Reads a number of at most three digits, none included; nothing when there are more.
std::optional<int> readSize(std::string_view text, std::size_t& at) {
  int size = 0;
  for (int digits = 0; at < text.size() && isDigit(text[at]); ++at) {
    if (++digits > kMostDigitsOfASize) return std::nullopt;
    size = size * 10 + (text[at] - '0');
  }
  return size;
}

/// Position of the first "%" that is not half of a "%%"; the end when there is none.
std::size_t findConversion(std::string_view text) {
  std::size_t at = text.find('%');
  while (at != std::string_view::npos && at + 1 < text.size() && text[at + 1] == '%') {
    at = text.find('%', at + 2);
  }
  return at == std::string_view::npos ? text.size() : at;
}

void appendLiteral(std::string_view text, std::string& out) {
  for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%')) {
    out.append(text, 0, at + 1);
    text.remove_prefix(at + 2);
  }
  out.append(text);
}

}  // namespace

std::optional<NumberFormat> NumberFormat::parse(std::string_view text) {
  NumberFormat format;
  std::size_t at = findConversion(text);
  format.before_ = text.substr(0, at);
  if (at == text.size()) return format;
  if (!format.parseConversion(text, ++at)) return std::nullopt;
  format.after_ = text.substr(at);
  const bool isOnlyConversion = findConversion(format.after_) == format.after_.size();
  return isOnlyConversion ? std::optional(format) : std::nullopt;
}

bool NumberFormat::parseFlag(char character) {
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

bool NumberFormat::parseConversion(std::string_view text, std::size_t& at) {
  while (at < text.size() && parseFlag(text[at])) ++at;
  const auto width = readSize(text, at);
  if (!width) return false;
  width_ = *width;
  if (at < text.size() && text[at] == '.') {
    const auto precision = readSize(text, ++at);
    if (!precision) return false;
    precision_ = *precision;
  }
  if (at < text.size() && text[at] == 'l') ++at;
  if (at == text.size() || std::string_view("eEfFgGaA").find(text[at]) == std::string_view::npos) {
    return false;
  }
  conversion_ = text[at++];
  return true;
}

void NumberFormat::append(double value, std::string& out) const {
  appendLiteral(before_, out);
  if (conversion_ != 0) appendNumber(value, out);
  appendLiteral(after_, out);
}

void NumberFormat::appendNumber(double value, std::string& out) const {
  std::array<char, kDigitsRoom> room;
  const char conversion = lower(conversion_);
  const std::string_view digits =
      floatDigits(std::fabs(value), conversion, precision_, alternate_, room);
  const std::size_t start = out.size();
  const std::string_view sign = std::signbit(value) ? "-" : plus_ ? "+" : blank_ ? " " : "";
  appendPadded(sign, conversion == 'a' ? "0x" : "", digits, out);
  if (conversion == conversion_) return;
  for (std::size_t i = start; i < out.size(); ++i) {
    if (out[i] >= 'a' && out[i] <= 'z') out[i] = static_cast<char>(out[i] & ~0x20);
  }
}

void NumberFormat::appendPadded(std::string_view sign, std::string_view prefix,
                                std::string_view digits, std::string& out) const {
  const std::size_t length = sign.size() + prefix.size() + digits.size();
  const auto width = static_cast<std::size_t>(width_);
  const std::size_t padding = width > length ? width - length : 0;
  if (!left_ && !zero_) out.append(padding, ' ');
  out.append(sign).append(prefix);
  if (!left_ && zero_) out.append(padding, '0');
  out.append(digits);
  if (left_) out.append(padding, ' ');
}

std::optional<std::string> printNumber(std::string_view format, double value) {
  const auto parsed = NumberFormat::parse(format);
  if (!parsed || !std::isfinite(value)) return std::nullopt;
  std::string text;
  parsed->append(std::fabs(value) < kSnapToZero ? 0.0 : value, text);
  // deliberate: the first comma of the whole text, a literal one of the format too.
  const std::size_t comma = text.find(',');
  if (comma != std::string::npos) text[comma] = '.';
  return text;
}

}  // namespace ppword
