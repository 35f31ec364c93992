#include "verify/PrintedNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace verify {
namespace {

/// 0 to 9 for a digit.
unsigned valueOf(char c) { return static_cast<unsigned>(static_cast<unsigned char>(c)) - '0'; }

bool isOfNumber(char c) {
  return valueOf(c) <= 9 || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
}

/// The parts of a number as it is written.
struct Spelling {
  std::size_t decimals = 0;
  int exponent = 0;
  bool hasExponent = false;
};

/// Takes digits off a text; returns how many.
std::size_t takeDigits(std::string_view& text) {
  std::size_t count = 0;
  while (count < text.size() && valueOf(text[count]) <= 9) ++count;
  text.remove_prefix(count);
  return count;
}

bool takeSign(std::string_view& text) {
  const bool isSigned = text.starts_with('+') || text.starts_with('-');
  if (isSigned) text.remove_prefix(1);
  return isSigned;
}

/// Takes E or D with a whole number; false when what is left begins otherwise.
bool takeExponent(std::string_view& text, Spelling& spelling) {
  if (text.empty()) return true;
  if (text.front() != 'E' && text.front() != 'e') return false;
  text.remove_prefix(1);
  if (text.starts_with('+')) text.remove_prefix(1);
  const auto [rest, error] =
      std::from_chars(text.data(), text.data() + text.size(), spelling.exponent);
  text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
  spelling.hasExponent = true;
  return error == std::errc();
}

/// Nothing for a text that is not a number.
std::optional<Spelling> spellingOf(std::string_view text) {
  Spelling spelling;
  takeSign(text);
  std::size_t digits = takeDigits(text);
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    spelling.decimals = takeDigits(text);
    digits += spelling.decimals;
  }
  if (digits == 0 || !takeExponent(text, spelling) || !text.empty()) return std::nullopt;
  return spelling;
}

/// The digits of a number that a double has exactly.
constexpr int kShortNumber = 15;
constexpr std::array<double, kShortNumber + 1> kPowersOfTen{
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Takes digits from `at` on into a number, which wraps around; returns how many.
std::ptrdiff_t takeDigits(const char*& at, const char* end, std::uint64_t& number) {
  const char* const first = at;
  for (unsigned digit = 0; at != end && (digit = valueOf(*at)) <= 9; ++at) {
    number = number * 10 + digit;
  }
  return at - first;
}

}  // namespace

// The digits as a whole number by a power of ten: both are exact, so that it is rounded once.
std::size_t readShortNumber(std::string_view text, PrintedNumber& number) {
  const char* at = text.data();
  const char* const end = at + text.size();
  const bool isNegative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  std::uint64_t digits = 0;
  auto count = takeDigits(at, end, digits);
  std::ptrdiff_t decimals = 0;
  if (at != end && *at == '.') decimals = takeDigits(++at, end, digits);
  count += decimals;
  const bool isShort = count > 0 && count <= kShortNumber;
  if (!isShort || (at != end && isOfNumber(*at))) return 0;
  const double unit = kPowersOfTen[static_cast<std::size_t>(decimals)];
  const auto whole = static_cast<std::int64_t>(digits);
  number.value = static_cast<double>(isNegative ? -whole : whole) / unit;
  number.halfUnit = 0.5 / unit;
  return static_cast<std::size_t>(at - text.data());
}

std::size_t lengthOfNumber(std::string_view text) {
  std::string_view rest = text;
  takeSign(rest);
  std::size_t digits = takeDigits(rest);
  if (rest.starts_with('.')) {
    rest.remove_prefix(1);
    digits += takeDigits(rest);
  }
  if (digits == 0) return 0;
  std::string_view after = rest;
  const bool hasExponent = after.starts_with('E') || after.starts_with('e');
  if (hasExponent) after.remove_prefix(1);
  takeSign(after);
  if (hasExponent && takeDigits(after) > 0) rest = after;
  return text.size() - rest.size();
}

std::optional<PrintedNumber> readNumber(std::string_view text) {
  PrintedNumber number;
  if (!text.empty() && readShortNumber(text, number) == text.size()) return number;
  const auto spelling = spellingOf(text);
  if (!spelling) return std::nullopt;
  const std::string_view digits = text.substr(text.starts_with('+') ? 1 : 0);
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number.value);
  number.halfUnit =
      0.5 * std::pow(10.0, spelling->exponent - static_cast<double>(spelling->decimals));
  number.hasExponent = spelling->hasExponent;
  number.isInRange = error == std::errc();
  return number;
}

}  // namespace verify
