#include "src/syntax/Substitution.h"

#include <algorithm>

#include "Manufacturing/KEPMfgPPWordListener.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// A reference as it stands in the line: its name, and what ends it.
struct Reference {
  std::string_view name;
  std::size_t end;
  char terminator;
  /// True when nothing ends the name but the end of the line.
  bool isLast;
};

/// Finds the references of one line. The last preferred terminator is found once, so that looking
/// for it never walks the line again and again.
class ReferenceScanner {
 public:
  ReferenceScanner(std::string_view line, std::string_view prefix)
      : line_(line),
        prefix_(prefix),
        preferred_(prefix == kExpressionPrefix ? ')' : ','),
        lastPreferred_(line.rfind(preferred_)) {}

  [[nodiscard]] std::size_t find(std::size_t from) const { return line_.find(prefix_, from); }

  /// The reference whose prefix stands at `start`. Its name starts one character behind: the name
  /// of an expression begins with "(".
  [[nodiscard]] Reference at(std::size_t start) const {
    const std::size_t begin = start + 1;
    // deliberate: the preferred terminator wins over a nearer blank.
    if (lastPreferred_ != kNone && start <= lastPreferred_) {
      const std::size_t end = line_.find(preferred_, start);
      return {line_.substr(begin, end - begin), end, preferred_, false};
    }
    const std::size_t end = line_.find_first_of(" \n\"", start);
    if (end == kNone) return {line_.substr(begin), line_.size(), preferred_, true};
    std::size_t length = end - begin;
    // deliberate: the character before a line feed is lost.
    if (line_[end] == '\n' && length > 0) --length;
    return {line_.substr(begin, length), end, line_[end], false};
  }

 private:
  std::string_view line_;
  std::string_view prefix_;
  char preferred_;
  std::size_t lastPreferred_;
};

/// Cuts a name at its first `mark` and gives the number of characters cut.
std::size_t cutAt(std::string_view& name, char mark) {
  const std::size_t place = std::min(name.find(mark), name.size());
  const std::size_t cut = name.size() - place;
  name.remove_suffix(cut);
  return cut;
}

void reportDropped(std::string_view name, std::string_view dropped) {
  KEPMfgPPWordListener* const listener = KEPMfgPPWordListener::Current();
  if (listener != nullptr) listener->TextDropped(name, dropped);
}

/// Trims a name of the text behind it that is no part of it; gives the number of ")" to write back.
std::size_t trimName(std::string_view& name, std::string_view prefix) {
  if (prefix == kExpressionPrefix) return 0;
  const std::string_view scanned = name;
  const std::size_t parentheses = cutAt(name, ')');
  const std::string_view behind = scanned.substr(name.size());
  // deliberate: every character behind the first ")" comes back as a ")".
  const bool isChanged = behind.find_first_not_of(')') != kNone;
  const std::string_view open = name;
  const bool isCut = prefix == kNumberPrefix && cutAt(name, '$') > 0;
  if (isChanged) reportDropped(name, behind);
  if (isCut) reportDropped(name, open.substr(name.size()));
  return parentheses;
}

}  // namespace

void substitute(std::string& line, std::string_view prefix, std::string_view unevaluated,
                ParameterSource& parameters, std::string& scratch) {
  const ReferenceScanner scanner(line, prefix);
  std::size_t from = 0;
  std::size_t start = scanner.find(from);
  if (start == kNone) return;
  scratch.clear();
  for (; start != kNone; start = scanner.find(from)) {
    scratch.append(line, from, start - from);
    Reference reference = scanner.at(start);
    const std::size_t parentheses = trimName(reference.name, prefix);
    if (!parameters.appendText(reference.name, scratch)) scratch.append(unevaluated);
    scratch.append(parentheses, ')');
    from = reference.end;
    if (reference.isLast) break;
    if (reference.terminator != ')') scratch.push_back(reference.terminator);
    ++from;
  }
  scratch.append(line, from);
  line.swap(scratch);
}

}  // namespace ppword
