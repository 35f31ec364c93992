#include "language/number/DecimalPrefix.h"

#include <algorithm>
#include <charconv>

#include "language/number/IntegerPrefix.h"

namespace ppword {
namespace {

constexpr std::string_view kDigits = "0123456789";

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

}  // namespace

std::optional<double> decimalPrefix(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const std::string_view digits = text.substr(text.starts_with('.') ? 1 : 0);
  if (!beginsWithDigit(digits)) return std::nullopt;
  double value = 0.0;
  const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (status == std::errc::result_out_of_range && isTooLarge({text.data(), end})) {
    return std::nullopt;
  }
  return negative ? -value : value;
}

}  // namespace ppword
