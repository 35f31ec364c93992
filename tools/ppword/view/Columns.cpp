#include "tools/ppword/view/Columns.h"

#include <algorithm>

namespace {

constexpr std::string_view kCodeDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Three bytes, of which the last ones may be missing, as four digits.
std::string digitsOf(std::string_view bytes) {
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    bits = (bits << 8U) | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
  }
  std::string digits(4, '=');
  for (std::size_t i = 0; i <= bytes.size(); ++i)
    digits[i] = kCodeDigits[(bits >> (18U - 6U * i)) & 63U];
  return digits;
}

}  // namespace

std::string base64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < bytes.size(); at += 3) text += digitsOf(bytes.substr(at, 3));
  return text;
}

void Column::add(std::int64_t number) {
  const auto sign = static_cast<std::uint64_t>(number < 0 ? 1 : 0);
  const auto size = static_cast<std::uint64_t>(number < 0 ? -number : number);
  std::uint64_t bits = (size << 1U) | sign;
  for (; bits >= 0x80U; bits >>= 7U) bytes_ += static_cast<char>((bits & 0x7FU) | 0x80U);
  bytes_ += static_cast<char>(bits);
}
