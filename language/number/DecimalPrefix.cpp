#include "language/number/DecimalPrefix.h"

#include <algorithm>
#include <charconv>

#include "language/number/IntegerPrefix.h"
#include "language/number/ShortDecimal.h"

namespace ppword {
namespace {

constexpr std::string_view kDigits = "0123456789";

/// White space of the C locale.
bool isSpace(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

bool beginsWithDigit(std::string_view text) {
  return !text.empty() && kDigits.find(text.front()) != std::string_view::npos;
}

/// True when a number outside the range of a double is above it rather than too close to zero: its
/// first significant digit stands left of the point once the exponent is applied.
bool isTooLarge(std::string_view number) {
  const std::size_t integerEnd = std::min(number.find_first_not_of(kDigits), number.size());
  const std::size_t significant = number.find_first_of("123456789");
  const long long places = static_cast<long long>(integerEnd) - static_cast<long long>(significant);
  const std::size_t exponent = number.find_first_of("eE");
  if (exponent == std::string_view::npos) return places > 0;
  return places + integerPrefix(number.substr(exponent + 1)).value_or(0) > 0;
}

/// A number of any size without a sign; nothing when there is none, or one that is too large.
std::optional<double> longDecimal(std::string_view text) {
  if (!beginsWithDigit(text.substr(text.starts_with('.') ? 1 : 0))) return std::nullopt;
  double value = 0.0;
  const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool isLost = status == std::errc::result_out_of_range && isTooLarge({text.data(), end});
  return isLost ? std::nullopt : std::optional(value);
}

}  // namespace

std::optional<double> decimalPrefix(std::string_view text) {
  const char* const end = text.data() + text.size();
  const char* at = std::find_if_not(text.data(), end, isSpace);
  const bool isNegative = at != end && *at == '-';
  if (isNegative || (at != end && *at == '+')) ++at;
  const char* const first = at;
  std::optional<double> value = readShortDecimal(at, end);
  const bool isShort = value && (at == end || (*at != 'e' && *at != 'E'));
  if (!isShort) value = longDecimal({first, static_cast<std::size_t>(end - first)});
  if (!value) return std::nullopt;
  return isNegative ? -*value : *value;
}

std::optional<double> plainDecimal(std::string_view text) {
  const char* const end = text.data() + text.size();
  const char* at = text.data();
  while (at != end && *at == ' ') ++at;
  const bool isNegative = at != end && *at == '-';
  if (isNegative) ++at;
  const auto value = readShortDecimal(at, end);
  if (!value || at != end) return std::nullopt;
  return isNegative ? -*value : *value;
}

}  // namespace ppword
