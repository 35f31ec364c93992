#include "src/syntax/Substitution.h"

#include <algorithm>

#include "System/KEPUnicodeString.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// What ends a name without ending the reference.
constexpr CharacterSet kTrimmed(")$");

/// What ends a name in a line without the preferred terminator.
constexpr std::string_view kOtherEnds = " \n\"";

/// Takes the last character off a name; an empty name has none.
void dropLastCharacter(std::string_view& name, ParameterSource& parameters) {
  if (name.empty()) return;
  std::size_t kept = name.size();
  while (kept > 0 && !KEPUnicodeString::StartsCharacter(name[--kept])) {
  }
  parameters.textDropped(name.substr(0, kept), name.substr(kept));
  name = name.substr(0, kept);
}

/// Position of the first `prefix` from `from` on. The prefix is looked for by its last character: a
/// line that has none of it costs one scan.
inline std::size_t findPrefix(std::string_view line, std::string_view prefix, std::size_t from) {
  const std::size_t before = prefix.size() - 1;
  std::size_t at = line.find(prefix.back(), from + before);
  while (at != kNone && line[at - before] != prefix.front()) at = line.find(prefix.back(), at + 1);
  return at == kNone ? kNone : at - before;
}

/// Finds where the names of the references of one line end, from left to right. Once the preferred
/// terminator does not come any more it is not looked for again: a line costs its length.
class ReferenceScanner {
 public:
  ReferenceScanner(PassedLine& line, char preferred)
      : line_(line.text()),
        preferred_(preferred),
        hasOthers_(line.holdsAny(CharacterSet(kOtherEnds))) {}

  /// The place of the character that ends the name beginning at `begin`; the size of the line when
  /// none does.
  [[nodiscard]] std::size_t endOf(std::size_t begin) {
    // deliberate: the preferred terminator wins over a nearer blank.
    const std::size_t end = hasPreferred_ ? line_.find(preferred_, begin) : kNone;
    hasPreferred_ = end != kNone;
    if (hasPreferred_) return end;
    return hasOthers_ ? std::min(line_.find_first_of(kOtherEnds, begin), line_.size())
                      : line_.size();
  }

 private:
  std::string_view line_;
  char preferred_;
  bool hasPreferred_ = true;
  bool hasOthers_;
};

/// Cuts a name at its first `mark` and gives what was cut off.
std::string_view cutAt(std::string_view& name, char mark) {
  const std::size_t place = std::min(name.find(mark), name.size());
  const std::string_view cut = name.substr(place);
  name = name.substr(0, place);
  return cut;
}

/// Trims a name of the text behind it that is no part of it; gives the number of ")" to write back.
std::size_t trimName(std::string_view& name, std::string_view prefix, ParameterSource& parameters) {
  // deliberate: every character behind the first ")" comes back as a ")".
  const std::string_view behind = cutAt(name, ')');
  const std::string_view mark = prefix == kNumberPrefix ? cutAt(name, '$') : std::string_view{};
  if (behind.find_first_not_of(')') != kNone) parameters.textDropped(name, behind);
  if (!mark.empty()) parameters.textDropped(name, mark);
  return static_cast<std::size_t>(
      std::count_if(behind.begin(), behind.end(), KEPUnicodeString::StartsCharacter));
}

}  // namespace

void substitute(PassedLine& line, std::string_view prefix, ParameterSource& parameters) {
  const std::string_view text = line.text();
  std::size_t start = findPrefix(text, prefix, 0);
  if (start == kNone) return;
  const bool isExpression = prefix == kExpressionPrefix;
  const bool isTrimmed = !isExpression && line.holdsAny(kTrimmed);
  ReferenceScanner scanner(line, isExpression ? ')' : ',');
  LineWriter& out = line.writer();
  std::size_t from = 0;
  for (; start != kNone; start = findPrefix(text, prefix, from)) {
    out.append(text.substr(from, start - from));
    // The name of an expression begins with "(".
    const std::size_t begin = start + 1;
    const std::size_t end = scanner.endOf(begin);
    std::string_view name = text.substr(begin, end - begin);
    // deliberate: the character before a line feed is lost.
    if (end < text.size() && text[end] == '\n') dropLastCharacter(name, parameters);
    const std::size_t parentheses = isTrimmed ? trimName(name, prefix, parameters) : 0;
    parameters.appendText(name, out);
    if (parentheses > 0) out.append(parentheses, ')');
    from = end;
    // The other terminators stay in the line.
    if (from < text.size() && text[from] == ')') ++from;
  }
  out.append(text.substr(from));
  line.acceptWritten();
}

}  // namespace ppword
