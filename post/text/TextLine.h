#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// True for a line that readers take for a text: after $$, PPRINT, PARTNO, REMARK and the other
/// words of the language whose rest is text, and after one of `words`.
[[nodiscard]] bool isTextLine(std::string_view line, std::span<const std::string> words);

/// The words of a table with those that readers of texts know beside the language's.
[[nodiscard]] std::vector<std::string> withKnownTextWords(std::vector<std::string> words);

}  // namespace host
