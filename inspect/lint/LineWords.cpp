#include "inspect/lint/LineWords.h"

#include <algorithm>

namespace host {
namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// Steps from one piece of a line to the next one.
class WordWalk {
 public:
  explicit WordWalk(const LineReading& reading) : reading_(reading) {}

  [[nodiscard]] std::vector<LineWord> words() {
    std::vector<LineWord> words;
    while (at_ < text().size()) {
      if (const std::size_t end = endOfReference(); end > at_) {
        at_ = end;
        isGlued_ = true;
      } else if (isWordCharacter(text()[at_])) {
        takeWord(words);
      } else {
        isGlued_ = text()[at_++] == '.';
      }
    }
    return words;
  }

 private:
  [[nodiscard]] std::string_view text() const { return reading_.text; }

  /// The end of the references that begin here; at most here when none does.
  [[nodiscard]] std::size_t endOfReference() {
    std::size_t end = 0;
    for (; next_ < reading_.references.size(); ++next_) {
      const LineReference& reference = reading_.references[next_];
      if (reference.start > at_) break;
      end = std::max(end, reference.end());
    }
    return end;
  }

  void takeWord(std::vector<LineWord>& words) {
    const std::size_t begin = at_;
    const std::size_t limit =
        next_ < reading_.references.size() ? reading_.references[next_].start : text().size();
    while (at_ < limit && isWordCharacter(text()[at_])) ++at_;
    const bool touches = isGlued_ || (at_ == limit && limit < text().size());
    isGlued_ = false;
    if (!touches && !isDigit(text()[begin])) words.push_back({writtenAt(begin), begin});
  }

  /// The word at a position, in the line as it is written.
  [[nodiscard]] std::string_view writtenAt(std::size_t begin) const {
    return reading_.written(begin, at_ - begin);
  }

  const LineReading& reading_;
  std::size_t at_ = 0;
  /// The next reference.
  std::size_t next_ = 0;
  /// True directly after a reference or a point.
  bool isGlued_ = false;
};

}  // namespace

std::vector<LineWord> wordsOf(const LineReading& reading) {
  if (reading.line.starts_with("$$")) return {};
  std::vector<LineWord> words = WordWalk(reading).words();
  if (!reading.isProse) return words;
  if (words.empty() || words.front().at > 0) return {};
  words.resize(1);
  return words;
}

}  // namespace host
