#include "language/syntax/GroupCursor.h"

#include "language/syntax/Characters.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

std::string_view withoutFirstCharacter(std::string_view text) {
  std::size_t size = 1;
  while (size < text.size() && !startsCharacter(text[size])) ++size;
  return text.substr(size);
}

}  // namespace

GroupCursor::GroupCursor(std::string_view line, std::string_view prefix)
    : line_(line), prefix_(prefix), open_(line.find('(')) {}

std::optional<Group> GroupCursor::next() {
  while (open_ != kNone) {
    const std::size_t open = open_;
    const std::size_t close = line_.find(')', open);
    const char sign = close == kNone ? '\0' : operatorAfter(open);
    if (sign == '\0') break;
    open_ = line_.find('(', close);
    const std::string_view inner = line_.substr(open + 1, close - open - 1);
    const std::size_t place = inner.find(sign);
    if (place == kNone) continue;
    return Group{open, close, sign, sideOf(inner.substr(0, place)),
                 sideOf(inner.substr(place + 1))};
  }
  open_ = kNone;
  return std::nullopt;
}

/// Places only grow, so a line is searched once for each operator.
char GroupCursor::operatorAfter(std::size_t place) {
  for (std::size_t i = 0; i < kOperators.size(); ++i) {
    if (at_[i] <= place) at_[i] = line_.find(kOperators[i], place + 1);
    // deliberate: an operator after the group is chosen too.
    if (at_[i] != kNone) return kOperators[i];
  }
  return '\0';
}

GroupSide GroupCursor::sideOf(std::string_view text) const {
  // deliberate: the prefix may be anywhere, the first character goes whatever it is.
  const bool isReference = text.find(prefix_) != kNone;
  return {isReference, isReference ? withoutFirstCharacter(text) : text};
}

}  // namespace ppword
