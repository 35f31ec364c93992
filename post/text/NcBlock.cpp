#include "post/text/NcBlock.h"

#include <algorithm>
#include <charconv>

namespace host {
namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kDigits = "0123456789";

bool isLetter(char byte) { return byte >= 'a' && byte <= 'z'; }
bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

/// Where the comment that begins at `at` ends; after the line for one that is not closed.
std::size_t endOfComment(std::string_view line, std::size_t at) {
  if (line[at] == ';') return line.size();
  const std::size_t end = line.find(')', at);
  return end == std::string_view::npos ? line.size() : end + 1;
}

std::string codeOf(std::string_view line) {
  std::string code;
  for (std::size_t at = 0; at < line.size();) {
    const char byte = line[at];
    if (byte == '(' || byte == ';') {
      at = endOfComment(line, at);
      continue;
    }
    ++at;
    if (kBlanks.find(byte) != std::string_view::npos) continue;
    code += byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
  }
  return code;
}

/// Walks over the words of a code.
class WordReader {
 public:
  explicit WordReader(std::string_view code) : code_(code) {}

  /// The next word with a plain number; false at the end.
  bool next(NcWord& word) {
    while (at_ < code_.size()) {
      const char byte = code_[at_];
      if (byte == '[' || byte == '<') {
        skip(byte, byte == '[' ? ']' : '>');
      } else if (!isLetter(byte)) {
        ++at_;
      } else if (readWord(word)) {
        return true;
      }
    }
    return false;
  }

 private:
  // An expression or a name, with those inside.
  void skip(char opening, char closing) {
    int depth = 0;
    for (; at_ < code_.size(); ++at_) {
      if (code_[at_] == opening) ++depth;
      if (code_[at_] == closing && --depth == 0) break;
    }
    at_ = std::min(at_ + 1, code_.size());
  }

  // Letters that follow each other, as in "endsub", are no words; nor is what other texts have.
  bool readWord(NcWord& word) {
    constexpr std::string_view kNotBefore = ",:=_-\"'$&@|\\";
    const char before = at_ == 0 ? ' ' : code_[at_ - 1];
    const bool isFirst = !isLetter(before) && kNotBefore.find(before) == std::string_view::npos;
    word.letter = code_[at_++];
    if (at_ < code_.size() && code_[at_] == '+') ++at_;
    const char* const first = code_.data() + at_;
    const auto [end, error] =
        std::from_chars(first, code_.data() + code_.size(), word.value, std::chars_format::fixed);
    const bool hasNumber =
        error == std::errc() && (isDigit(*first) || *first == '-' || *first == '.');
    if (!hasNumber) return skipOther();
    at_ += static_cast<std::size_t>(end - first);
    return isFirst && word.letter != 'o';
  }

  // What is after a letter without a number, up to the next word.
  bool skipOther() {
    while (at_ < code_.size() && !isLetter(code_[at_]) && code_[at_] != '[' && code_[at_] != '<') {
      ++at_;
    }
    return false;
  }

  std::string_view code_;
  std::size_t at_ = 0;
};

/// The code after a mark of a block that can be left out, and after its number.
std::string_view afterNumber(std::string_view code) {
  if (code.starts_with('/')) code.remove_prefix(1);
  if (!code.starts_with('n')) return code;
  const std::size_t end = code.find_first_not_of("0123456789.", 1);
  return code.substr(std::min(end, code.size()));
}

/// Takes the name or number after an "o"; "#" for one that is computed.
std::string takeName(std::string_view& code) {
  const bool isNamed = code.starts_with('<');
  const std::size_t end = isNamed ? code.find('>') : code.find_first_not_of(kDigits);
  std::string name(code.substr(isNamed ? 1 : 0, isNamed ? end - 1 : end));
  if (end == std::string_view::npos) {
    code = {};
    return isNamed ? "" : name;
  }
  code.remove_prefix(isNamed ? end + 1 : end);
  return name.empty() ? "#" : name;
}

bool hasWord(const NcBlock& block) {
  const auto words = block.words();
  return std::ranges::any_of(
      words, [](const NcWord& word) { return word.letter == 'g' || word.letter == 'm'; });
}

}  // namespace

NcBlock::NcBlock(std::string_view line) : code_(codeOf(line)) {}

std::vector<NcWord> NcBlock::words() const {
  std::vector<NcWord> words;
  WordReader reader(code_);
  for (NcWord word; reader.next(word);) words.push_back(word);
  return words;
}

std::string NcBlock::oWord(std::string_view keyword) const {
  std::string_view code = afterNumber(code_);
  if (!code.starts_with('o')) return "";
  code.remove_prefix(1);
  const bool isComputed = code.starts_with('#') || code.starts_with('[');
  if (isComputed) return code.find(keyword) != std::string_view::npos ? "#" : "";
  const std::string name = takeName(code);
  return code.starts_with(keyword) ? name : "";
}

std::string NcBlock::called() const {
  if (std::string name = oWord("call"); !name.empty()) return name;
  const std::size_t word = code_.find("m98p");
  if (word == std::string::npos) return "";
  std::string_view number = std::string_view(code_).substr(word + 4);
  return takeName(number);
}

std::string NcBlock::defined() const { return oWord("sub"); }

bool looksLikeProgram(std::string_view firstLines) {
  bool found = false;
  while (!firstLines.empty()) {
    const std::string_view line = firstLines.substr(0, firstLines.find('\n'));
    firstLines.remove_prefix(std::min(line.size() + 1, firstLines.size()));
    if (line.starts_with("*START_") || line.find('\0') != std::string_view::npos) return false;
    found = found || (line.size() <= kLongestBlock && hasWord(NcBlock(line)));
  }
  return found;
}

std::string numberedBlock(std::string_view line, const std::string& number) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  const std::size_t first = line.find_first_not_of(kBlanks);
  if (first == std::string_view::npos || line[first] == '%') return std::string(line);
  std::string_view rest = line.substr(first);
  std::string start;
  if (rest.starts_with('/')) {
    start = "/";
    rest.remove_prefix(1);
  }
  rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
  const bool hasNumber = rest.starts_with('n') || rest.starts_with('N');
  if (hasNumber) {
    const std::size_t digit = rest.find_first_not_of(kBlanks, 1);
    if (digit == std::string_view::npos || !isDigit(rest[digit])) return std::string(line);
    rest.remove_prefix(std::min(rest.find_first_not_of("0123456789. \t", 1), rest.size()));
  }
  std::string numbered = (start + 'N' + number + ' ').append(rest);
  if (numbered.size() <= kLongestBlock) return numbered;
  return line.size() <= kLongestBlock ? start.append(rest) : std::string(line);
}

}  // namespace host
