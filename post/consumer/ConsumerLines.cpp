#include "post/consumer/ConsumerLines.h"

#include <algorithm>
#include <utility>

#include "post/text/FoldedLines.h"
#include "post/text/TextLine.h"

namespace host {
namespace {

/// The line for messages: as much of it as fits into one.
std::string beginning(std::string_view line) {
  constexpr std::size_t kMost = 40;
  std::size_t end = 0;
  while (end < line.size() && end < kMost) end += characterAt(line, end).size();
  return '"' + std::string(line.substr(0, end)) + (end < line.size() ? "...\"" : "\"");
}

/// Raises the UnfitLine of the first word that is too long.
void requireWords(std::string_view line, int longest, bool isText) {
  const std::string_view word = longWord(line, longest, isText);
  if (word.empty()) return;
  throw UnfitLine("the word " + beginning(word) + " has more than " + std::to_string(longest) +
                  " letters");
}

}  // namespace

ConsumerLines::ConsumerLines(const Consumer& consumer, std::vector<std::string> textWords,
                             LineSink& next)
    : consumer_(consumer), textWords_(withKnownTextWords(std::move(textWords))), next_(next) {}

void ConsumerLines::write(std::string_view line) {
  out_.clear();
  isFirst_ = true;
  for (std::size_t at = 0; at <= line.size();) {
    const std::size_t end = std::min(line.find('\n', at), line.size());
    writeOne(line.substr(at, end - at));
    at = end + 1;
  }
  next_.write(out_);
}

void ConsumerLines::writeOne(std::string_view line) {
  const std::string text = inSet(line);
  const bool isText = isTextLine(text, textWords_);
  if (consumer_.longestWord > 0) requireWords(text, consumer_.longestWord, isText);
  wrap(text, isText);
}

// The line with characters of the set only.
std::string ConsumerLines::inSet(std::string_view line) {
  std::string text;
  text.reserve(line.size());
  for (std::size_t at = 0; at < line.size();) {
    const std::string_view character = characterAt(line, at);
    at += character.size();
    if (takes(consumer_, character)) {
      text += character;
    } else {
      const char other = replacementOf(character, consumer_);
      if (other == '\0')
        throw UnfitLine("its reader does not take " + shownCharacter(character) +
                        "; write another one");
      text += other;
      count(character);
    }
  }
  return text;
}

void ConsumerLines::count(std::string_view character) {
  constexpr std::size_t kMost = 100;
  const auto known = std::find_if(replaced_.begin(), replaced_.end(), [&](const auto& each) {
    return each.character == character || each.character.empty();
  });
  if (known != replaced_.end()) {
    ++known->count;
  } else {
    const bool isOther = replaced_.size() == kMost;
    replaced_.push_back({isOther ? "" : std::string(character), 1, lines_ + 1});
  }
}

void ConsumerLines::wrap(std::string_view line, bool isText) {
  const auto most = static_cast<std::size_t>(consumer_.columns);
  while (most > 0 && columnsOf(line) > most) {
    const std::string within = " does not fit into " + std::to_string(most) + " columns";
    if (isText) throw UnfitLine("the text " + beginning(line) + within);
    // The $ needs a column, and a comment stays with the end of its statement.
    const std::string_view part =
        line.substr(0, std::min(bytesOfColumns(line, most - 1), line.find("$$")));
    const std::size_t comma = part.rfind(',');
    if (comma == part.npos) {
      throw UnfitLine(beginning(line) + within + ", and has no comma where it can go on");
    }
    put(std::string(line.substr(0, comma + 1)) + '$');
    line.remove_prefix(comma + 1);
  }
  put(line);
}

// Adds a line that fits.
void ConsumerLines::put(std::string_view columns) {
  if (!isFirst_) out_ += '\n';
  isFirst_ = false;
  out_ += columns;
  ++lines_;
  if (consumer_.sequenceStep > 0) {
    const std::string number = sequenceText(lines_ * consumer_.sequenceStep);
    if (number.size() > kSequenceDigits) {
      throw UnfitLine("the number of its line has more than 8 digits");
    }
    out_.append(static_cast<std::size_t>(consumer_.columns) - columnsOf(columns), ' ');
    out_ += number;
  }
  if (consumer_.endsWithReturn) out_ += '\r';
}

}  // namespace host
