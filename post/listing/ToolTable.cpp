#include "post/listing/ToolTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "post/listing/CanonicalCall.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kOffsets = "XYZABCUVW";
constexpr std::string_view kLetters = "TPXYZABCUVWDIJQ";
constexpr int kHighestPocket = 1000;
constexpr double kMostLength = 1e9;

char upper(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// True for the axes whose offsets are lengths: those that do not turn.
bool isLength(std::size_t axis) { return kOffsets[axis] < 'A' || kOffsets[axis] > 'C'; }

/// Reads one line of a table.
class ToolLine {
 public:
  ToolLine(std::string_view line, const LinePlace& place)
      : line_(line), words_(line.substr(0, line.find(';'))), place_(place) {}

  /// The number of the tool; nothing for a line without words.
  std::optional<int> read(TableTool& tool) {
    const auto control = std::ranges::find_if(line_, isControl);
    if (control != line_.end()) {
      place_.refuse(static_cast<std::size_t>(control - line_.begin()),
                    "a byte is not text; this is not a tool table");
    }
    skipBlanks();
    if (at_ == words_.size()) return std::nullopt;
    const std::size_t start = at_;
    for (; at_ < words_.size(); skipBlanks()) readWord(tool);
    if (!number_) place_.refuse(start, "the line names no tool: a word such as T3 is expected");
    readComment(tool);
    tool.line = place_.line;
    return number_;
  }

 private:
  static bool isControl(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 && byte != '\t' && byte != '\r';
  }

  void skipBlanks() { at_ = std::min(words_.find_first_not_of(kBlanks, at_), words_.size()); }

  void readWord(TableTool& tool) {
    const std::size_t start = at_;
    const char letter = upper(words_[at_++]);
    if (kLetters.find(letter) == std::string_view::npos) {
      place_.refuse(start,
                    "a word of a tool table is expected (T, P, X, Y, Z, A, B, C, U, V, W, D, I, J "
                    "or Q with a number), or ';' before a comment");
    }
    if (letters_.find(letter) != std::string::npos) {
      place_.refuse(start, std::string("the line has two words ") + letter);
    }
    letters_ += letter;
    store(letter, number(start), start, tool);
  }

  double number(std::size_t start) {
    if (at_ < words_.size() && words_[at_] == '+') ++at_;
    double value = 0.0;
    const char* const first = words_.data() + at_;
    const auto [end, error] = std::from_chars(first, words_.data() + words_.size(), value);
    const bool isNumber = error == std::errc() && std::abs(value) <= kMostLength;
    if (!isNumber) place_.refuse(start, "the word has no number after its letter");
    at_ += static_cast<std::size_t>(end - first);
    return value;
  }

  int whole(double value, double most, std::size_t start) const {
    if (value >= 0.0 && value <= most && value == std::floor(value)) return static_cast<int>(value);
    place_.refuse(start, "a whole number from 0 to " + std::to_string(static_cast<int>(most)) +
                             " is expected");
  }

  void store(char letter, double value, std::size_t start, TableTool& tool) {
    constexpr double kHighestTool = 99999.0;
    constexpr double kHighestOrientation = 9.0;
    const std::size_t axis = kOffsets.find(letter);
    if (axis != std::string_view::npos) tool.offset[axis] = value;
    if (letter == 'T') number_ = whole(value, kHighestTool, start);
    if (letter == 'P') tool.pocket = whole(value, kHighestPocket, start);
    if (letter == 'Q') tool.orientation = whole(value, kHighestOrientation, start);
    if (letter == 'D') tool.diameter = value;
    if (letter == 'I') tool.frontAngle = value;
    if (letter == 'J') tool.backAngle = value;
  }

  void readComment(TableTool& tool) const {
    if (words_.size() == line_.size()) return;
    const std::string_view text = line_.substr(words_.size() + 1);
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    tool.comment = text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
  }

  std::string_view line_;
  std::string_view words_;
  const LinePlace& place_;
  std::size_t at_ = 0;
  std::string letters_;
  std::optional<int> number_;
};

void add(ToolTable& table, int number, TableTool tool, const LinePlace& place) {
  const auto [known, isNew] = table.tools.emplace(number, std::move(tool));
  if (!isNew) {
    place.refuse(0, "tool " + std::to_string(number) + " is in line " +
                        std::to_string(known->second.line) + " already");
  }
  if (table.tools.size() > kMostTools) {
    place.refuse(0, "the table has more than " + std::to_string(kMostTools) + " tools");
  }
}

/// " X1.5", or nothing for 0.
std::string word(char letter, double value) {
  if (value == 0.0) return "";
  constexpr std::size_t kLongest = 40;
  char text[kLongest];
  const auto [end, error] =
      std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed, 9);
  return error == std::errc() ? (std::string(" ") += letter).append(text, end) : "";
}

}  // namespace

ToolTable readToolTable(const std::string& path, LengthUnit unit) {
  LineReader lines(path);
  ToolTable table{lines.name(), {}, unit};
  for (std::string_view line; lines.next(line);) {
    const LinePlace place{table.file, lines.lineNumber()};
    TableTool tool;
    const auto number = ToolLine(line, place).read(tool);
    if (number) add(table, *number, std::move(tool), place);
  }
  return table;
}

std::string toolTableText(const ToolTable& table) {
  const auto inches = [&](double length) {
    return converted(length, table.unit, LengthUnit::Inch);
  };
  std::string text;
  for (const auto& [number, tool] : table.tools) {
    (text += 'T') += std::to_string(number);
    (text += " P") += std::to_string(tool.pocket);
    for (std::size_t axis = 0; axis < tool.offset.size(); ++axis) {
      const double offset = tool.offset[axis];
      text += word(kOffsets[axis], isLength(axis) ? inches(offset) : offset);
    }
    text += word('D', inches(tool.diameter));
    text += word('I', tool.frontAngle) + word('J', tool.backAngle);
    ((text += " Q") += std::to_string(tool.orientation)) += '\n';
  }
  return text;
}

}  // namespace host
