#include "language/syntax/References.h"

#include <algorithm>

#include "language/syntax/Characters.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// What ends a name without ending the reference.
constexpr CharacterSet kTrimmed(")$");

/// What ends a name in a line without the preferred terminator.
constexpr std::string_view kOtherEnds = " \n\"";

/// Cuts a name at its first `mark` and gives what was cut off.
std::string_view cutAt(std::string_view& name, char mark) {
  const std::size_t place = std::min(name.find(mark), name.size());
  const std::string_view cut = name.substr(place);
  name = name.substr(0, place);
  return cut;
}

/// Finds the references of one line, from left to right.
class ReferenceScanner {
 public:
  ReferenceScanner(SyntaxLine& line, std::string_view prefix, ParameterSource& parameters)
      : text_(line.text()),
        prefix_(prefix),
        parameters_(parameters),
        preferred_(isExpression() ? ')' : ','),
        hasOthers_(line.holdsAny(CharacterSet(kOtherEnds))),
        isTrimmed_(!isExpression() && line.holdsAny(kTrimmed)) {}

  /// Appends the references to `found`; gives the text behind the last one.
  std::string_view run(std::vector<Reference>& found) {
    std::size_t from = 0;
    for (std::size_t start = text_.find(prefix_); start != kNone;
         start = text_.find(prefix_, from)) {
      const std::string_view before = text_.substr(from, start - from);
      // The name of an expression begins with "(".
      const std::size_t begin = start + 1;
      const std::size_t end = endOf(begin);
      std::string_view name = text_.substr(begin, end - begin);
      const char terminator = end < text_.size() ? text_[end] : '\0';
      // deliberate: the character before a line feed is lost.
      if (terminator == '\n') dropLastCharacter(name);
      const std::size_t parentheses = isTrimmed_ ? trim(name) : 0;
      found.push_back({before, name, parentheses});
      // The other terminators stay in the line.
      from = terminator == ')' ? end + 1 : end;
    }
    return text_.substr(from);
  }

  /// True when text was dropped.
  [[nodiscard]] bool dropsText() const noexcept { return dropsText_; }

 private:
  [[nodiscard]] bool isExpression() const noexcept { return prefix_ == kExpressionPrefix; }

  /// The place of the character that ends the name beginning at `begin`; the size of the line when
  /// none does. Once the preferred terminator does not come any more it is not looked for again: a
  /// line costs its length.
  [[nodiscard]] std::size_t endOf(std::size_t begin) {
    // deliberate: the preferred terminator wins over a nearer blank.
    const std::size_t end = hasPreferred_ ? text_.find(preferred_, begin) : kNone;
    hasPreferred_ = end != kNone;
    if (hasPreferred_) return end;
    return hasOthers_ ? std::min(text_.find_first_of(kOtherEnds, begin), text_.size())
                      : text_.size();
  }

  /// Takes the last character off a name; an empty name has none.
  void dropLastCharacter(std::string_view& name) {
    if (name.empty()) return;
    std::size_t kept = name.size();
    while (kept > 0 && !startsCharacter(name[--kept])) {
    }
    drop(name.substr(0, kept), name.substr(kept));
    name = name.substr(0, kept);
  }

  /// Trims a name of the text behind it that is no part of it; gives the number of ")" to write
  /// back.
  std::size_t trim(std::string_view& name) {
    // deliberate: every character behind the first ")" comes back as a ")".
    const std::string_view behind = cutAt(name, ')');
    const std::string_view mark = prefix_ == kNumberPrefix ? cutAt(name, '$') : std::string_view{};
    if (behind.find_first_not_of(')') != kNone) drop(name, behind);
    if (!mark.empty()) drop(name, mark);
    return static_cast<std::size_t>(std::count_if(behind.begin(), behind.end(), startsCharacter));
  }

  void drop(std::string_view name, std::string_view text) {
    parameters_.textDropped(name, text);
    dropsText_ = true;
  }

  std::string_view text_;
  std::string_view prefix_;
  ParameterSource& parameters_;
  char preferred_;
  bool hasPreferred_ = true;
  bool hasOthers_;
  bool isTrimmed_;
  bool dropsText_ = false;
};

}  // namespace

void References::find(SyntaxLine& line, ParameterSource& parameters) {
  if (line.revision() == revision_) return;
  ReferenceScanner scanner(line, prefix_, parameters);
  found_.clear();
  rest_ = scanner.run(found_);
  // Dropped text is told of each time.
  revision_ = scanner.dropsText() ? SyntaxLine::kNoRevision : line.revision();
}

}  // namespace ppword
