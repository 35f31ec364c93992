#include "language/syntax/ReferenceCursor.h"

#include <algorithm>

#include "language/syntax/Characters.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// What ends a name without ending the reference.
constexpr CharacterSet kTrimmed(")$");

/// What ends a name in a line without the preferred terminator.
constexpr std::string_view kOtherEnds = " \n\"";

/// Cuts a name at a place, at most its size, and returns what was cut off.
std::string_view cutAt(std::string_view& name, std::size_t place) {
  const std::string_view cut = name.substr(place);
  name = name.substr(0, place);
  return cut;
}

std::string_view cutAtFirst(std::string_view& name, char mark) {
  return cutAt(name, std::min(name.find(mark), name.size()));
}

/// Cuts the last character off a name; an empty name has none.
std::string_view cutLastCharacter(std::string_view& name) {
  std::size_t place = name.size();
  while (place > 0 && !startsCharacter(name[--place])) {
  }
  return cutAt(name, place);
}

}  // namespace

ReferenceCursor::ReferenceCursor(std::string_view line, std::string_view prefix,
                                 CharacterSet characters) noexcept
    : line_(line),
      prefix_(prefix),
      preferred_(prefix == kExpressionPrefix ? ')' : ','),
      hasOthers_(characters.holdsAny(CharacterSet(kOtherEnds))),
      isTrimmed_(!isExpression() && characters.holdsAny(kTrimmed)) {}

std::optional<Reference> ReferenceCursor::next() {
  const std::size_t start = line_.find(prefix_, from_);
  if (start == kNone) return std::nullopt;
  // The name of an expression begins with "(".
  const std::size_t begin = start + 1;
  const std::size_t end = nameEnd(begin);
  const char terminator = end < line_.size() ? line_[end] : '\0';
  from_ = terminator == ')' ? end + 1 : end;
  Reference reference{start, from_, line_.substr(begin, end - begin), {}, {}, {}, 0};
  // deliberate: the character before a line feed is lost.
  if (terminator == '\n') reference.beforeLineFeed = cutLastCharacter(reference.name);
  if (isTrimmed_) trim(reference);
  return reference;
}

/// The place of the character that ends the name beginning at `begin`; the size of the line when
/// none does. Once the preferred terminator does not come any more it is not looked for again: a
/// line costs its length.
std::size_t ReferenceCursor::nameEnd(std::size_t begin) noexcept {
  // deliberate: the preferred terminator wins over a nearer blank.
  const std::size_t end = hasPreferred_ ? line_.find(preferred_, begin) : kNone;
  hasPreferred_ = end != kNone;
  if (hasPreferred_) return end;
  return hasOthers_ ? std::min(line_.find_first_of(kOtherEnds, begin), line_.size()) : line_.size();
}

void ReferenceCursor::trim(Reference& reference) const noexcept {
  reference.parenthesis = cutAtFirst(reference.name, ')');
  if (prefix_ == kNumberPrefix) reference.dollar = cutAtFirst(reference.name, '$');
  // deliberate: every character after the first ")" comes back as a ")".
  reference.parentheses = static_cast<std::size_t>(
      std::count_if(reference.parenthesis.begin(), reference.parenthesis.end(), startsCharacter));
}

}  // namespace ppword
