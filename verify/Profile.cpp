#include <algorithm>
#include <string>
#include <utility>

#include "verify/Words.h"

namespace verify {
namespace {

constexpr std::string_view kBetween = " \t";
constexpr std::string_view kMapping = "word";

/// Reads one line of a profile from left to right.
class ProfileLine {
 public:
  ProfileLine(std::string_view text, long number) : text_(text), number_(number) {}

  /// The next word or "="; empty at the end of the line and before a comment.
  std::string_view take() {
    at_ = std::min(text_.find_first_not_of(kBetween, end_), text_.size());
    const bool isComment = text_.substr(at_).starts_with('#');
    const bool isMark = text_.substr(at_).starts_with('=');
    end_ = std::min(text_.find_first_of(" \t=#", at_), text_.size());
    if (isMark) end_ = at_ + 1;
    if (isComment) end_ = at_;
    return text_.substr(at_, end_ - at_);
  }

  /// An error at what was taken last.
  [[nodiscard]] ProfileError error(std::string message) const {
    return {{number_, static_cast<long>(at_) + 1}, std::move(message)};
  }

 private:
  std::string_view text_;
  long number_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
};

std::string quoted(std::string_view word) {
  constexpr std::size_t kLongest = 40;
  const bool isLong = word.size() > kLongest;
  return '\'' + std::string(word.substr(0, kLongest)) + (isLong ? "..." : "") + '\'';
}

/// word WORD = KNOWN
std::optional<ProfileError> readMapping(ProfileLine& line, Words& words) {
  const std::string_view word = line.take();
  if (word.empty() || word == "=") return line.error("a word is expected after 'word'");
  if (line.take() != "=") return line.error("'=' is expected after the word " + quoted(word));
  const std::string_view known = line.take();
  if (known.empty()) return line.error("a word that the reader knows is expected after '='");
  if (words.find(known) == nullptr) {
    return line.error("the reader does not know the word " + quoted(known));
  }
  if (!words.add(word, known)) return line.error(quoted(word) + " is not a word of APT");
  const std::string_view more = line.take();
  if (!more.empty()) return line.error(quoted(more) + " is one word too many");
  return std::nullopt;
}

std::optional<ProfileError> readLine(std::string_view text, long number, Words& words) {
  ProfileLine line(text, number);
  const std::string_view first = line.take();
  if (first.empty()) return std::nullopt;
  if (first == kMapping) return readMapping(line, words);
  return line.error(quoted(first) + " is not 'word'");
}

}  // namespace

std::optional<ProfileError> readProfile(ByteSource bytes, Words& words) {
  constexpr long kMostLines = 10'000;
  TextLines lines(std::move(bytes));
  for (std::string_view line; lines.next(line);) {
    if (lines.number() > kMostLines) {
      return ProfileError{{lines.number(), 1}, "a profile has at most 10000 lines"};
    }
    if (auto error = readLine(line, lines.number(), words)) return error;
  }
  return std::nullopt;
}

}  // namespace verify
