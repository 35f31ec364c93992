#include "post/consumer/ConsumerProfile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <optional>

#include "post/text/Utf8.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

constexpr std::string_view kBetween = " \t\r";
constexpr long kMostLines = 10'000;

std::string quoted(std::string_view word) {
  constexpr std::size_t kLongest = 40;
  const bool isLong = word.size() > kLongest;
  return '\'' + std::string(word.substr(0, kLongest)) + (isLong ? "..." : "") + '\'';
}

/// Reads one line of a profile from left to right.
class ProfileLine {
 public:
  ProfileLine(std::string_view file, std::string_view text, long number)
      : file_(file), text_(text), number_(number) {}

  /// The next word or "="; empty at the end of the line and before a comment.
  std::string_view take() {
    at_ = std::min(text_.find_first_not_of(kBetween, end_), text_.size());
    const bool isComment = text_.substr(at_).starts_with('#');
    const bool isMark = text_.substr(at_).starts_with('=');
    end_ = std::min(text_.find_first_of(" \t\r=#", at_), text_.size());
    if (isMark) end_ = at_ + 1;
    if (isComment) end_ = at_;
    return text_.substr(at_, end_ - at_);
  }
  /// The value after "=", with nothing after it. A mark can be a value.
  std::string_view takeValue(std::string_view what, std::string_view expected) {
    if (take() != "=") refuse("'=' is expected after " + std::string(what));
    const std::size_t first = text_.find_first_not_of(kBetween, end_);
    const bool isMark = first != std::string_view::npos &&
                        (text_[first] == '=' || text_[first] == '#') &&
                        kBetween.find(text_.substr(first + 1, 1)) != std::string_view::npos;
    std::string_view value = take();
    if (isMark && value.empty()) value = text_.substr(at_, 1);
    if (isMark) end_ = at_ + 1;
    if (value.empty()) refuse(std::string(expected) + " is expected after '='");
    return value;
  }
  void requireEnd() {
    const std::string_view more = take();
    if (!more.empty()) refuse(quoted(more) + " is one word too many");
  }

  /// Raises the error of what was taken last.
  [[noreturn]] void refuse(const std::string& message) const {
    throw InputError(file_, number_, column(), message);
  }
  [[nodiscard]] long number() const noexcept { return number_; }
  [[nodiscard]] long column() const noexcept { return static_cast<long>(at_) + 1; }

 private:
  std::string_view file_;
  std::string_view text_;
  long number_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
};

/// A number from 1 to `most`; nothing for another text.
std::optional<int> readCount(std::string_view text, int most) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = error == std::errc() && end == text.data() + text.size();
  return isWhole && number >= 1 && number <= most ? std::optional(number) : std::nullopt;
}

/// The number that one of the words stands for, otherwise a count; nothing for another text.
std::optional<int> readChoice(std::string_view text, std::string_view none, int most) {
  return text == none ? std::optional(0) : readCount(text, most);
}

bool readColumns(std::string_view value, Consumer& consumer) {
  if (value != "any" && value != "72" && value != "80") return false;
  consumer.columns = value == "any" ? 0 : *readCount(value, 80);
  return true;
}

bool readLineEnd(std::string_view value, Consumer& consumer) {
  consumer.endsWithReturn = value == "crlf";
  return value == "lf" || value == "crlf";
}

bool readSequence(std::string_view value, Consumer& consumer) {
  const auto step = readChoice(value, "off", 9'999'999);
  consumer.sequenceStep = step.value_or(0);
  return step.has_value();
}

bool readCharacters(std::string_view value, Consumer& consumer) {
  constexpr std::array<std::string_view, 3> kNames{"any", "ascii", "capitals"};
  const auto* const found = std::find(kNames.begin(), kNames.end(), value);
  if (found == kNames.end()) return false;
  consumer.characters = static_cast<Consumer::Characters>(found - kNames.begin());
  return true;
}

bool readReplacement(std::string_view value, Consumer& consumer) {
  constexpr char kFirst = '!';
  constexpr char kLast = '~';
  const bool isCharacter = value.size() == 1 && value[0] >= kFirst && value[0] <= kLast;
  consumer.replacement = isCharacter ? value[0] : '\0';
  return isCharacter || value == "refuse";
}

bool readLongestWord(std::string_view value, Consumer& consumer) {
  const auto longest = readChoice(value, "any", 80);
  consumer.longestWord = longest.value_or(0);
  return longest.has_value();
}

struct Setting {
  std::string_view name;
  /// What messages say of its values.
  std::string_view values;
  /// False for another value.
  bool (*read)(std::string_view value, Consumer& consumer);
};

constexpr std::array<Setting, 6> kSettings{{
    {"columns", "72, 80 or any", readColumns},
    {"line-end", "lf or crlf", readLineEnd},
    {"sequence-numbers", "off, or a step from 1 to 9999999,", readSequence},
    {"characters", "any, ascii or capitals", readCharacters},
    {"other-characters", "refuse, or one printable character of ASCII,", readReplacement},
    {"longest-word", "any, or a number from 1 to 80,", readLongestWord},
}};

/// Reads a profile line by line.
class ProfileReader {
 public:
  ProfileReader(std::string_view file, ConsumerProfile& profile) : file_(file), profile_(profile) {}

  void read(std::string_view text, long number) {
    ProfileLine line(file_, text, number);
    if (number > kMostLines) line.refuse("a profile has at most 10000 lines");
    const std::string_view name = line.take();
    if (name.empty()) return;
    if (name == "word") return readMeaning(line);
    const auto* const setting =
        std::find_if(kSettings.begin(), kSettings.end(),
                     [name](const Setting& each) { return each.name == name; });
    if (setting == kSettings.end()) line.refuse(unknown(name));
    readSetting(*setting, line);
  }
  /// Refuses settings that contradict each other.
  void finish() const {
    const Consumer& consumer = profile_.consumer;
    if (consumer.sequenceStep != 0 && consumer.columns != 72) {
      const Place& step = placeOf(readSequence);
      throw InputError(file_, step.line, 1, "sequence-numbers need columns = 72");
    }
    const std::string_view replacement(&consumer.replacement, 1);
    if (consumer.replacement == '\0' || takes(consumer, replacement)) return;
    // Any other set has all that a replacement can be.
    const Place& place = placeOf(readReplacement);
    throw InputError(file_, place.line, place.column,
                     quoted(replacement) +
                         " is not among characters = capitals; write a capital, "
                         "a digit or one of + - * / , . ( ) = $ '");
  }

 private:
  /// Of a value, from 1; 0 for a setting that is not there.
  struct Place {
    long line = 0;
    long column = 0;
  };

  [[nodiscard]] const Place& placeOf(decltype(Setting::read) reader) const {
    const auto* const setting =
        std::find_if(kSettings.begin(), kSettings.end(),
                     [reader](const Setting& each) { return each.read == reader; });
    return places_[static_cast<std::size_t>(setting - kSettings.data())];
  }
  static std::string unknown(std::string_view name) {
    std::string message = quoted(name) + " is not 'word'";
    for (const Setting& setting : kSettings) {
      const bool isLast = &setting == &kSettings.back();
      message += (isLast ? " or '" : ", '") + std::string(setting.name) + '\'';
    }
    return message;
  }
  /// word WORD = KNOWN
  void readMeaning(ProfileLine& line) {
    const std::string word(line.take());
    if (word.empty() || word == "=") line.refuse("a word is expected after 'word'");
    const std::string_view known =
        line.takeValue("the word " + quoted(word), "a word that the reader knows");
    profile_.words.push_back({word, std::string(known), line.number(), line.column()});
    line.requireEnd();
  }
  void readSetting(const Setting& setting, ProfileLine& line) {
    Place& place = places_[static_cast<std::size_t>(&setting - kSettings.data())];
    if (place.line != 0) line.refuse(quoted(setting.name) + " is there twice");
    const std::string_view value = line.takeValue(quoted(setting.name), setting.values);
    place = {line.number(), line.column()};
    if (!setting.read(value, profile_.consumer)) {
      line.refuse(std::string(setting.values) + " is expected, found " + quoted(value));
    }
    line.requireEnd();
  }

  std::string_view file_;
  ConsumerProfile& profile_;
  std::array<Place, kSettings.size()> places_{};
};

/// Passes the lines of a text to a reader.
void readText(std::string_view text, ProfileReader& reader) {
  for (long number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    reader.read(text.substr(0, end), number);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

}  // namespace

ConsumerProfile readProfile(const std::string& nameOrFile) {
  ConsumerProfile profile{nameOrFile, {}, {}};
  for (const ShippedProfile& shipped : shippedProfiles()) {
    if (shipped.name != nameOrFile) continue;
    ProfileReader reader(profile.name, profile);
    readText(shipped.text, reader);
    return profile;
  }
  LineReader lines(nameOrFile);
  profile.name = lines.name();
  ProfileReader reader(profile.name, profile);
  for (std::string_view line; lines.next(line);) {
    if (lines.lineNumber() == 1 && line.starts_with(kByteOrderMark)) {
      line.remove_prefix(kByteOrderMark.size());
    }
    reader.read(line, lines.lineNumber());
  }
  reader.finish();
  return profile;
}

}  // namespace host
