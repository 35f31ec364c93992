#include "tools/ppword/AddedCommands.h"

#include <algorithm>
#include <charconv>

#include "inspect/diagnostics/Diagnostic.h"
#include "post/toolpath/LineReader.h"
#include "tools/ppword/Commands.h"

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// A mistaken number too; an empty text is a variable of a script that was never set.
bool isMeantAsNumber(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return text.empty() || isDigit(text.front());
}

int sequenceOf(const std::string& argument) {
  if (const auto number = numberFromOne(argument)) return *number;
  throw UsageError{"NUMBER" + std::string(kFromOne) + argument + "'"};
}

const std::string& nameOf(const std::string& argument) {
  if (!hasControl(argument)) return argument;
  throw UsageError{"NAME has a control character, such as a tab or a line feed"};
}

[[noreturn]] void refuseMore(const host::LineReader& lines) {
  throw host::InputError(lines.name(), lines.lineNumber(), 0,
                         "there are more than " + std::to_string(kMostAddedCommands) + " names");
}

// The words of one line, with their places for messages.
class NameLine {
 public:
  NameLine(const host::LineReader& lines, std::string_view text) : lines_(lines), text_(text) {
    if (text_.ends_with('\r')) text_.remove_suffix(1);
  }

  // Nothing for a blank line.
  std::optional<AddedCommand> command() {
    AddedCommand command{name(), 1};
    if (command.name.empty()) return std::nullopt;
    if (const auto number = nextWord(); !number.empty()) command.sequence = sequence(number);
    if (const auto word = nextWord(); !word.empty()) {
      refuse("'" + host::terminalSafe(word) +
             "' is one word too many: a line is NAME or NAME NUMBER");
    }
    return command;
  }

 private:
  [[nodiscard]] std::string name() {
    const std::string_view word = nextWord();
    if (lines_.lineNumber() == 1 && word.starts_with("\xEF\xBB\xBF")) {
      refuse("the file begins with a byte-order mark; write it as UTF-8 without one");
    }
    if (hasControl(word)) refuse("the name has a control character");
    return std::string(word);
  }
  std::string_view nextWord() {
    constexpr std::string_view kBlanks = " \t";
    word_ = std::min(text_.find_first_not_of(kBlanks, end_), text_.size());
    end_ = std::min(text_.find_first_of(kBlanks, word_), text_.size());
    return text_.substr(word_, end_ - word_);
  }
  [[noreturn]] void refuse(const std::string& why) const {
    throw host::InputError(lines_.name(), lines_.lineNumber(), static_cast<long>(word_) + 1, why);
  }
  [[nodiscard]] int sequence(std::string_view word) const {
    if (const auto number = numberFromOne(word)) return *number;
    refuse("the number of a sequence" + std::string(kFromOne) + host::terminalSafe(word) + "'");
  }

  const host::LineReader& lines_;
  std::string_view text_;
  std::size_t word_ = 0;
  std::size_t end_ = 0;
};

}  // namespace

std::optional<int> numberFromOne(std::string_view text) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || rest != end || number < 1) return std::nullopt;
  return number;
}

bool hasControl(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; });
}

std::vector<AddedCommand> commandsOf(const std::vector<std::string>& arguments) {
  std::vector<AddedCommand> commands;
  bool wantsName = true;
  for (const std::string& argument : arguments) {
    const bool isNumber = !commands.empty() && isMeantAsNumber(argument);
    if (isNumber && wantsName) throw UsageError{"'" + argument + "' is one argument too many"};
    if (isNumber) commands.back().sequence = sequenceOf(argument);
    if (!isNumber) commands.push_back({nameOf(argument), 1});
    wantsName = isNumber;
  }
  return commands;
}

std::vector<AddedCommand> commandsFrom(const std::string& path) {
  host::LineReader lines(path);
  std::vector<AddedCommand> commands;
  for (std::string_view text; lines.next(text);) {
    auto command = NameLine(lines, text).command();
    if (!command) continue;
    if (commands.size() == kMostAddedCommands) refuseMore(lines);
    commands.push_back(*std::move(command));
  }
  if (commands.empty()) throw host::InputError(lines.name(), 0, 0, "there is no name in it");
  return commands;
}
