#include <algorithm>
#include <cctype>
#include <set>
#include <utility>

#include "inspect/lint/LineRules.h"
#include "language/syntax/Signs.h"

namespace host {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kSegmentEnds = ",=";

bool isDigit(char byte) { return std::isdigit(static_cast<unsigned char>(byte)) != 0; }

/// The number of bytes of a number with an exponent that `text` begins with.
std::size_t exponentNumber(std::string_view text) {
  std::size_t at = std::min(text.find_first_not_of("0123456789."), text.size());
  if (at == 0 || at == text.size() || (text[at] | 0x20) != 'e') return 0;
  ++at;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  const std::size_t digits = at;
  while (at < text.size() && isDigit(text[at])) ++at;
  return at == digits ? 0 : at;
}

/// The begin and size of numbers with exponents.
using Numbers = std::set<std::pair<std::size_t, std::size_t>>;

/// True for an operator between two operands; a "/" after a word divides nothing.
bool joins(std::string_view flat, std::size_t at) {
  const char before = at > 0 ? flat[at - 1] : ',';
  if (flat[at] == '/') return isDigit(before) || std::string_view(".)").find(before) != kNone;
  return ppword::kSigns.find(flat[at]) != kNone && std::string_view(",=/(").find(before) == kNone;
}

/// True when the word or number of the byte before goes on with this one.
bool goesOn(const LineReading& reading, std::size_t at) {
  return !reading.isValue(at - 1) && std::isalnum(static_cast<unsigned char>(reading.flat[at - 1]));
}

/// Adds those that an operator outside of them would compute with.
void addComputed(const LineReading& reading, std::size_t begin, std::size_t end, Numbers& all) {
  const std::string_view flat = reading.flat;
  Numbers numbers;
  bool isComputed = false;
  for (std::size_t at = begin; at < end;) {
    const bool canBegin = !reading.isValue(at) && (at == begin || !goesOn(reading, at));
    const std::size_t width = canBegin ? exponentNumber(flat.substr(at, end - at)) : 0;
    if (width > 0) numbers.emplace(at, width);
    isComputed = isComputed || joins(flat, at);
    at += std::max<std::size_t>(width, 1);
  }
  if (isComputed) all.merge(numbers);
}

/// Adds divisors that end at the sign of their exponent.
void addDivisors(const LineReading& reading, Numbers& all) {
  for (const ppword::Division& division : reading.divisions) {
    const std::size_t at =
        division.at + 1 +
        std::min(division.divisor.find_first_not_of(' '), division.divisor.size());
    const std::size_t width = exponentNumber(reading.text.substr(at));
    if (at + width > division.at + 1 + division.divisor.size()) all.emplace(at, width);
  }
}

}  // namespace

void lintExponents(const LineReading& reading, LineReport& report) {
  if (reading.isComment) return;
  const std::string_view flat = reading.flat;
  Numbers numbers;
  for (std::size_t begin = 0; begin < flat.size();) {
    const std::size_t end = std::min(flat.find_first_of(kSegmentEnds, begin), flat.size());
    addComputed(reading, begin, end, numbers);
    begin = end + 1;
  }
  addDivisors(reading, numbers);
  for (const auto& [at, width] : numbers) {
    report.warn(LintKey::ExponentOperand, at, width, reading.written(at, width));
  }
}

}  // namespace host
