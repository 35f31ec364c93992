#include "inspect/diagnostics/Diagnostic.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "post/text/Utf8.h"

namespace host {
namespace {

constexpr std::size_t kWidth = 96;
constexpr std::size_t kBeforeCaret = 64;
constexpr std::string_view kIndent = "  ";
constexpr std::string_view kCut = "...";

std::string escaped(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text.append({'\\', 'x', kDigits[value >> 4U], kDigits[value & 15U]});
  }
  return text;
}

bool isHarmless(char32_t point) {
  constexpr std::pair<char32_t, char32_t> kHarmful[] = {{0x00, 0x1F},     {0x7F, 0x9F},
                                                        {0x200B, 0x200F}, {0x2028, 0x202E},
                                                        {0x2060, 0x206F}, {0xFEFF, 0xFEFF}};
  return std::none_of(std::begin(kHarmful), std::end(kHarmful), [point](const auto& range) {
    return point >= range.first && point <= range.second;
  });
}

// What one place of a terminal shows, and the byte of the text that it belongs to.
struct Cell {
  std::string shown;
  std::size_t byte;
};

void appendCells(std::string_view character, std::size_t byte, bool harmless,
                 std::vector<Cell>& cells) {
  if (harmless) {
    cells.push_back({std::string(character), byte});
    return;
  }
  for (const char letter : escaped(character)) cells.push_back({{letter}, byte});
}

// A printable character of ASCII.
bool isPlain(char byte) { return byte >= ' ' && byte <= '~'; }

std::vector<Cell> cellsOf(std::string_view text) {
  std::vector<Cell> cells;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = utf8Length(text, at);
    const std::string_view character = text.substr(at, std::max<std::size_t>(length, 1));
    appendCells(character, at, length != 0 && isHarmless(codePoint(character)), cells);
    at += character.size();
  }
  return cells;
}

std::string joined(const std::vector<Cell>& cells, std::size_t first, std::size_t last) {
  std::string text;
  for (std::size_t i = first; i < last; ++i) text += cells[i].shown;
  return text;
}

// The place of a byte; bytes after the text have places after it.
std::size_t cellOfByte(const std::vector<Cell>& cells, std::size_t size, std::size_t byte) {
  if (byte >= size) return cells.size() + byte - size;
  const auto found = std::partition_point(cells.begin(), cells.end(),
                                          [byte](const Cell& cell) { return cell.byte < byte; });
  return static_cast<std::size_t>(found - cells.begin());
}

constexpr std::string_view kBold = "1";
constexpr std::string_view kGreen = "1;32";

/// Bold red, magenta or cyan.
std::string_view colourOf(Severity severity) {
  constexpr std::string_view kColours[] = {"1;31", "1;35", "1;36"};
  return kColours[static_cast<std::size_t>(severity)];
}

/// A text in a colour of the terminal; as it is without one.
std::string painted(std::string_view text, std::string_view colour, bool coloured) {
  if (!coloured) return std::string(text);
  return std::string("\x1b[").append(colour).append("m").append(text).append("\x1b[m");
}

std::string sourceText(const Diagnostic& diagnostic, bool coloured) {
  std::string source = diagnostic.source.text;
  std::replace(source.begin(), source.end(), '\t', ' ');
  const std::vector<Cell> cells = cellsOf(source);
  const auto mark = static_cast<std::size_t>(diagnostic.column - diagnostic.source.firstColumn);
  const std::size_t caret = cellOfByte(cells, source.size(), mark);
  const std::size_t markEnd =
      cellOfByte(cells, source.size(), mark + static_cast<std::size_t>(diagnostic.width));

  const std::size_t first = caret > kBeforeCaret ? caret - kBeforeCaret : 0;
  const std::size_t last = std::min(cells.size(), first + kWidth);
  const bool cutBefore = first > 0 || diagnostic.source.firstColumn > 1;
  const bool cutAfter = last < cells.size() || diagnostic.source.goesOn;

  std::string text(kIndent);
  if (cutBefore) text += kCut;
  text.append(joined(cells, first, last)).append(cutAfter ? kCut : "").append("\n");
  text.append(kIndent.size() + (cutBefore ? kCut.size() : 0) + caret - first, ' ');
  const std::size_t tail = std::min(markEnd, last);
  const std::string underline = '^' + std::string(tail > caret + 1 ? tail - caret - 1 : 0, '~');
  return text + painted(underline, kGreen, coloured) + '\n';
}

std::string place(const Diagnostic& diagnostic) {
  std::string text = terminalSafe(diagnostic.file);
  if (diagnostic.line > 0) text += ':' + std::to_string(diagnostic.line);
  if (diagnostic.column > 0) text += ':' + std::to_string(diagnostic.column);
  return text;
}

}  // namespace

Excerpt excerptOf(std::string_view line, long column) {
  const long firstColumn = std::max(1L, column - kExcerptReach);
  const std::size_t first = std::min(line.size(), static_cast<std::size_t>(firstColumn) - 1);
  const std::size_t last = std::min(line.size(), static_cast<std::size_t>(column + kExcerptReach));
  Excerpt excerpt{std::string(line.substr(first, last - first)), firstColumn, last < line.size()};
  if (!excerpt.goesOn && excerpt.text.ends_with('\r')) excerpt.text.pop_back();
  return excerpt;
}

std::string terminalSafe(std::string_view text) {
  if (std::all_of(text.begin(), text.end(), isPlain)) return std::string(text);
  const std::vector<Cell> cells = cellsOf(text);
  return joined(cells, 0, cells.size());
}

std::string diagnosticText(const Diagnostic& diagnostic, bool coloured) {
  std::string kind(severityName(diagnostic.severity));
  if (!diagnostic.key.empty()) kind += ' ' + diagnostic.key;
  std::string text = painted(place(diagnostic) + ':', kBold, coloured) + ' ';
  text += painted(kind + ':', colourOf(diagnostic.severity), coloured) + ' ';
  text += terminalSafe(diagnostic.message) + '\n';
  if (diagnostic.hasSource()) text += sourceText(diagnostic, coloured);
  return text;
}

}  // namespace host
