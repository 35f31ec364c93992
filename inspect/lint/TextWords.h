#pragma once

#include <string_view>

namespace host {

/// True for a word of a command's body that takes the rest of its line as its text.
[[nodiscard]] inline bool takesRestOfLine(std::string_view word) {
  return word.starts_with("PPRINT") || word == "PARTNO" || word == "$$" || word == "INSERT" ||
         word == "DNCMSG";
}

}  // namespace host
