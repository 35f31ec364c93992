#pragma once

#include <cstddef>
#include <string_view>

namespace host {

/// What some editors write before a text in UTF-8.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Number of bytes of the character that begins at `at`, 1 to 4; 0 if the bytes there are not a
/// character of UTF-8 (overlong forms and surrogates are not).
[[nodiscard]] std::size_t utf8Length(std::string_view text, std::size_t at);

/// The code point of a character that utf8Length found.
[[nodiscard]] char32_t codePoint(std::string_view character);

/// True when the whole text is UTF-8.
[[nodiscard]] bool isUtf8(std::string_view text);

}  // namespace host
