#include "post/consumer/ConsumerText.h"

#include <algorithm>
#include <utility>

#include "post/text/FoldedLines.h"
#include "post/text/TextLine.h"

namespace host {
namespace {

constexpr std::size_t kLongestLine = std::size_t{1} << 20U;
constexpr std::size_t kNumberColumn = 72;

}  // namespace

ConsumerText::ConsumerText(const Consumer& consumer, std::vector<std::string> textWords,
                           Sink report)
    : consumer_(consumer),
      textWords_(withKnownTextWords(std::move(textWords))),
      report_(std::move(report)),
      due_(consumer.sequenceStep) {}

void ConsumerText::add(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t feed = bytes.find('\n');
    const std::string_view piece = bytes.substr(0, feed);
    line_.append(piece.substr(0, kLongestLine - std::min(line_.size(), kLongestLine)));
    if (feed == bytes.npos) return;
    check(line_);
    line_.clear();
    bytes.remove_prefix(feed + 1);
  }
}

void ConsumerText::finish() {
  if (!line_.empty()) check(line_);
  line_.clear();
}

void ConsumerText::check(std::string_view line) {
  ++number_;
  line = withoutEnd(line);
  if (consumer_.sequenceStep > 0) line = withoutNumber(line);
  checkWidth(line);
  checkCharacters(line);
  checkWord(line);
}

std::string_view ConsumerText::withoutEnd(std::string_view line) {
  const bool hasReturn = line.ends_with('\r');
  if (hasReturn) line.remove_suffix(1);
  if (hasReturn != consumer_.endsWithReturn && !std::exchange(hasOtherEnd_, true)) {
    report(line, line.size(), 1, hasReturn ? "the line ends with CR LF" : "the line ends with LF");
  }
  return line;
}

std::string_view ConsumerText::withoutNumber(std::string_view line) {
  const std::size_t at = bytesOfColumns(line, kNumberColumn);
  const std::string_view number = line.substr(at);
  const bool isNumber =
      number.size() == kSequenceDigits && number.find_first_not_of("0123456789") == number.npos;
  if (!isNumber) {
    report(line, std::max(at, kNumberColumn), 1, "no number of eight digits in columns 73 to 80");
  } else if (number != sequenceText(due_)) {
    report(line, at, number.size(),
           "the number " + std::string(number) + ", where " + sequenceText(due_) + " is due");
    due_ = std::stol(std::string(number));
  }
  due_ += consumer_.sequenceStep;
  line = line.substr(0, at);
  return line.substr(0, line.find_last_not_of(' ') + 1);
}

void ConsumerText::checkWidth(std::string_view line) const {
  const auto most = static_cast<std::size_t>(consumer_.columns);
  if (most == 0 || columnsOf(line) <= most) return;
  const std::size_t at = bytesOfColumns(line, most);
  report(line, at, line.size() - at, "more than " + std::to_string(most) + " columns");
}

void ConsumerText::checkCharacters(std::string_view line) const {
  for (std::size_t at = 0; at < line.size();) {
    const std::string_view character = characterAt(line, at);
    if (!takes(consumer_, character)) {
      return report(line, at, character.size(), shownCharacter(character));
    }
    at += character.size();
  }
}

void ConsumerText::checkWord(std::string_view line) const {
  if (consumer_.longestWord == 0) return;
  const std::string_view word = longWord(line, consumer_.longestWord, isTextLine(line, textWords_));
  if (word.empty()) return;
  report(line, static_cast<std::size_t>(word.data() - line.data()), word.size(),
         "a word of more than " + std::to_string(consumer_.longestWord) + " letters");
}

void ConsumerText::report(std::string_view line, std::size_t at, std::size_t width,
                          std::string what) const {
  report_({number_, static_cast<long>(at) + 1, width, std::move(what), line});
}

}  // namespace host
