#include "verify/TableLines.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>

namespace verify {
namespace {

constexpr std::string_view kNone = " \t";
constexpr std::string_view kWordEnds = " \t,/()=$%&\\";
constexpr std::string_view kNameCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_.#";
constexpr std::string_view kOperators = "+-*";
constexpr std::string_view kNumerals = "0123456789";

bool isAnyOf(char c, std::string_view set) { return set.find(c) != std::string_view::npos; }
bool isAsciiDigit(char c) { return c >= '0' && c <= '9'; }
bool isAsciiLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

/// Reads a line from left to right until something is computed.
class TableLineReader {
 public:
  TableLineReader(std::string_view text, TableLine& line) : text_(text), line_(line) {}

  void read() {
    while (at_ < text_.size() && !line_.isComputed()) {
      const char c = text_[at_];
      if (text_.substr(at_).starts_with("\\%")) {
        literal_ += '%';
        at_ += 2;
      } else if (c == '%' || c == '&') {
        readReference();
      } else if (isOperation()) {
        compute();
      } else {
        literal_ += c;
        ++at_;
      }
    }
    store();
  }

 private:
  void store() {
    if (!literal_.empty()) line_.pieces.push_back({Piece::Kind::Literal, literal_});
    literal_.clear();
  }

  void compute() {
    store();
    line_.pieces.push_back({Piece::Kind::Computed, ""});
  }

  /// True for a sign that is not that of a number, and for a division.
  [[nodiscard]] bool isOperation() {
    if (line_.isText) return false;
    const char c = text_[at_];
    const char before = at_ > 0 ? text_[at_ - 1] : '/';
    if (c == '-' || c == '+') {
      const bool isNumber =
          at_ + 1 < text_.size() && (isAsciiDigit(text_[at_ + 1]) || text_[at_ + 1] == '.');
      return !isNumber || !isAnyOf(before, ",/( ");
    }
    if (c == '/' && std::exchange(hasSlash_, true)) return !isAsciiLetter(before);
    return c == '*';
  }

  /// What follows the name of a reference up to where it ends: the next comma, of a text also the
  /// next sign; without one the next blank or double quote.
  [[nodiscard]] std::size_t endOfName(std::size_t begin) const {
    std::size_t end = text_.find(',', begin);
    if (line_.isText) end = std::min(end, text_.find_first_of(kOperators, begin));
    if (end == std::string_view::npos) end = text_.find_first_of(" \"", begin);
    return std::min(end, text_.size());
  }

  void readReference() {
    const std::size_t begin = at_ + 1;
    const std::size_t end = endOfName(begin);
    const std::size_t name =
        std::min(text_.find_first_not_of(kNameCharacters, begin), text_.size());
    const std::string_view after = name < end ? text_.substr(name, end - name) : std::string_view();
    const bool isClear = name > begin && after.find_first_not_of(')') == std::string_view::npos;
    if (!isClear) return compute();
    store();
    const std::string_view parameter = text_.substr(begin, std::min(name, end) - begin);
    line_.pieces.push_back(
        {Piece::Kind::Reference, std::string(parameter), text_[at_] == '&', sourceOf(parameter)});
    literal_ = after;
    at_ = end;
  }

  std::string_view text_;
  TableLine& line_;
  std::string literal_;
  std::size_t at_ = 0;
  bool hasSlash_ = false;
};

std::string_view trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kNone), text.size()));
  return text.substr(0, text.find_last_not_of(kNone) + 1);
}

/// The parameters that a generation has formats for.
constexpr std::array<std::string_view, 3> kPointNames{"MFG_XPOINT", "MFG_YPOINT", "MFG_ZPOINT"};
constexpr std::array<std::string_view, 3> kAxisNames{"MFG_XAXIS", "MFG_YAXIS", "MFG_ZAXIS"};

/// The format of a generation may have commas for points.
std::string withPoints(std::string format) {
  std::ranges::replace(format, ',', '.');
  return format;
}

/// True when a statement of an instruction, not a text, has all of some parameters, or may have
/// them: one that computes may have any.
bool prints(const InstructionLines& lines, std::span<const std::string_view> parameters) {
  return std::ranges::any_of(lines.lines, [&](const TableLine& line) {
    const auto isIn = [&](std::string_view name) { return line.refersTo(name); };
    return !line.isText && (line.isComputed() || std::ranges::all_of(parameters, isIn));
  });
}

bool prints(const InstructionLines& lines, std::string_view parameter) {
  return prints(lines, {&parameter, 1});
}

bool printsMotion(const InstructionLines& lines) {
  return prints(lines, kPointNames) || prints(lines, "MFG_CIRCLE_") ||
         prints(lines, "MFG_HELICAL_");
}

/// True for a line of a point whose coordinates are not X, Y and Z.
bool printsOtherPoint(const TableLine& line) {
  if (line.isComputed() || (line.word != "GOTO" && line.word != "FROM")) return false;
  std::vector<std::string_view> coordinates;
  for (const Piece& piece : line.pieces) {
    const bool isCoordinate = piece.kind == Piece::Kind::Reference &&
                              std::ranges::find(kPointNames, piece.text) != kPointNames.end();
    if (isCoordinate) coordinates.push_back(piece.text);
  }
  return !coordinates.empty() && !std::ranges::equal(coordinates, kPointNames);
}

/// Takes the characters of a set off a format.
std::string_view takeOf(std::string_view set, std::string_view& format) {
  const std::size_t end = std::min(format.find_first_not_of(set), format.size());
  const std::string_view taken = format.substr(0, end);
  format.remove_prefix(end);
  return taken;
}

/// True for a format that prints a number in decimal digits and nothing else. A point may follow
/// where the number has none: %.0f.
bool printsOnlyNumber(std::string_view format) {
  if (takeOf("%", format) != "%") return false;
  const bool hasPoint = isAnyOf('#', takeOf("-+ #0", format));
  takeOf(kNumerals, format);
  const bool isWhole = format.starts_with(".0f") && !hasPoint;
  if (format.starts_with('.')) format.remove_prefix(1);
  takeOf(kNumerals, format);
  if (format.empty() || !isAnyOf(format.front(), "eEfFgG")) return false;
  return format.size() == 1 || (isWhole && format == "f.");
}

std::size_t referencesOf(const InstructionLines& lines) {
  std::size_t count = 0;
  for (const TableLine& line : lines.lines) {
    if (line.isComputed()) continue;
    count += static_cast<std::size_t>(
        std::ranges::count(line.pieces, Piece::Kind::Reference, &Piece::kind));
  }
  return count;
}

/// The engine loses a $ after the name of a number.
bool losesDollar(const TableLine& line) {
  return line.isContinued && !line.pieces.empty() &&
         line.pieces.back().kind == Piece::Kind::Reference;
}

}  // namespace

bool TableLine::refersTo(std::string_view part) const {
  return std::ranges::any_of(pieces, [part](const Piece& piece) {
    return piece.kind != Piece::Kind::Literal && piece.text.find(part) != std::string::npos;
  });
}

bool InstructionLines::refersTo(std::string_view part) const {
  return std::ranges::any_of(lines, [part](const TableLine& line) { return line.refersTo(part); });
}

TableLine readTableLine(std::string_view text, const Words& words) {
  TableLine line;
  text = trimmed(text);
  line.isText = text.starts_with("$$") || words.textWordOf(text) != nullptr;
  line.word = text.substr(0, text.find_first_of(kWordEnds));
  line.isContinued = !line.isText && text.ends_with('$');
  if (line.isContinued) text = trimmed(text.substr(0, text.size() - 1));
  TableLineReader(text, line).read();
  if (losesDollar(line)) {
    line.isContinued = false;
    line.pieces.push_back({Piece::Kind::Computed, ""});
  }
  line.isKnown = words.find(line.word) != nullptr;
  line.hasReference = std::ranges::any_of(
      line.pieces, [](const Piece& piece) { return piece.kind != Piece::Kind::Literal; });
  return line;
}

// Nothing for a parameter without one.
std::optional<std::string> TableLines::formatOf(std::string_view parameter) const {
  for (const auto& [names, stated] : {std::pair(kPointNames, &generation_.pointFormat),
                                      std::pair(kAxisNames, &generation_.axisFormat)}) {
    const bool isStated = !stated->empty() && std::ranges::find(names, parameter) != names.end();
    if (isStated) return withPoints(*stated);
  }
  const auto format = document_.formats.find(parameter);
  return format == document_.formats.end() ? std::nullopt : std::optional(format->second);
}

// What a format prints that has more than a number, or none, is not followed.
void TableLines::followFormats(TableLine& line) const {
  for (Piece& piece : line.pieces) {
    const auto format = piece.kind == Piece::Kind::Reference ? formatOf(piece.text) : std::nullopt;
    if (format && !printsOnlyNumber(*format)) {
      piece.source = {nullptr, 0, [](const InputValues&) { return Value{Value::Kind::Unknown}; }};
    }
  }
}

const InstructionLines* TableLines::find(std::string_view instruction, int sequence) {
  const auto found = document_.instructions.find(instruction);
  if (found == document_.instructions.end() || sequence < 1) return nullptr;
  const auto number = static_cast<std::size_t>(sequence);
  if (number > found->second.size()) return nullptr;
  const auto [known, isNew] = read_.try_emplace({std::string(instruction), sequence});
  InstructionLines& lines = known->second;
  if (!isNew) return &lines;
  lines.name = instruction;
  for (const std::string& line : found->second[number - 1]) {
    lines.lines.push_back(readTableLine(line, words_));
  }
  for (TableLine& line : lines.lines) followFormats(line);
  lines.printsMotion = printsMotion(lines);
  lines.printsOtherPoint = std::ranges::any_of(lines.lines, printsOtherPoint);
  lines.printsAxis = prints(lines, kAxisNames);
  lines.printsFeed = prints(lines, "MFG_FEED_VALUE");
  lines.printsSpeed = prints(lines, "MFG_SPNDL_SPEED");
  lines.references = referencesOf(lines);
  lines.printsPoint = lines.refersTo("MFG_XPOINT");
  lines.printsCircleEnd = lines.refersTo("MFG_CIRCLE_X_PT");
  lines.printsHelixEnd = lines.refersTo("MFG_HELICAL_X_END");
  return &lines;
}

}  // namespace verify
