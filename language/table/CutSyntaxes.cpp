#include "language/table/CutSyntaxes.h"

#include <string_view>

namespace ppword {
namespace {

// How many characters of `next` belong to the end of `line`.
std::size_t cutOff(std::string_view line, std::string_view next) {
  if (line.size() != kCutWidth || line.back() == ',') return 0;
  const std::size_t mark = line.find_last_of(",%", kCutWidth - 2);
  if (mark == std::string_view::npos || line[mark] == ',') return 0;
  const std::size_t comma = next.find(',');
  // deliberate: a parameter that is the last argument of its line stays cut
  return comma == std::string_view::npos || comma == 0 ? 0 : comma + 1;
}

}  // namespace

void mendCutSyntaxes(std::span<std::string> syntaxes) {
  std::size_t carry = 0;
  for (std::size_t i = 0; i < syntaxes.size(); ++i) {
    const bool last = i + 1 == syntaxes.size();
    const std::size_t moved = last ? 0 : cutOff(syntaxes[i], syntaxes[i + 1]);
    syntaxes[i].erase(0, carry);
    if (moved != 0) syntaxes[i].append(syntaxes[i + 1], 0, moved);
    carry = moved;
  }
}

}  // namespace ppword
