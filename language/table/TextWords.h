#pragma once

#include <string>
#include <string_view>

namespace ppword {

/// True for a token of a command's body that takes the rest of its line as its text.
[[nodiscard]] bool isTextWord(std::string_view token);

/// The element of a text word: the word and the rest of its line, which is not empty, without the
/// last character and without the blanks at the ends. "PPRINT" and " A  B \n" are "PPRINT A  B".
[[nodiscard]] std::string textElement(std::string_view word, std::string_view rest);

}  // namespace ppword
