#include "inspect/diagnostics/TableErrorPlace.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "host/system/MessageCatalogue.h"
#include "inspect/diagnostics/TableFile.h"
#include "language/table/Keywords.h"
#include "language/table/TableCheck.h"
#include "post/text/SpellingSuggestion.h"

namespace host {
namespace {

using ppword::CountedLine;
using ppword::KeywordLine;
using ppword::TableCursor;

constexpr std::string_view kErrors = "ManufacturingError";
constexpr std::string_view kUnreadable = "ERR_5009";
constexpr std::string_view kBlanks = " \t\v\f\r";

// The keyword after which an error misses a name, as a line holds it; empty for the other errors.
std::string_view keywordWithoutName(std::string_view key) {
  const auto keyword =
      std::find_if(ppword::kKeywords.begin(), ppword::kKeywords.end(),
                   [key](const ppword::Keyword& each) { return each.missingName == key; });
  return keyword == ppword::kKeywords.end() ? std::string_view() : keyword->inLine();
}

long countedLineOf(const KEPError& error) {
  if (error.GetNLSParameters().empty()) return 0;
  const std::string_view text = error.GetNLSParameters().front().View();
  long line = 0;
  std::from_chars(text.data(), text.data() + text.size(), line);
  return line;
}

std::optional<CountedLine> lineAt(std::string_view table, long counted) {
  TableCursor cursor(table);
  std::optional<CountedLine> line;
  for (long number = 0; number < counted; ++number) {
    const auto next = cursor.nextLine();
    if (!next) break;
    line = next;
  }
  return line;
}

// The next line that begins or ends a block.
std::optional<CountedLine> nextBlockLine(TableCursor& cursor, KeywordLine::Kind& kind) {
  while (const auto line = cursor.nextLine()) {
    if (!line->text.starts_with('*')) continue;
    kind = ppword::checkKeywordLine(line->text).kind;
    if (kind != KeywordLine::Kind::Other) return line;
  }
  return std::nullopt;
}

// The first *END that closes no block.
std::optional<CountedLine> surplusEnd(std::string_view table) {
  TableCursor cursor(table);
  long open = 0;
  KeywordLine::Kind kind{};
  while (const auto line = nextBlockLine(cursor, kind)) {
    open += kind == KeywordLine::Kind::Start ? 1 : -1;
    if (open < 0) return line;
  }
  return std::nullopt;
}

// The first *START that no *END closes: the outermost block that is open at the end.
std::optional<CountedLine> unclosedStart(std::string_view table) {
  TableCursor cursor(table);
  long open = 0;
  std::optional<CountedLine> outermost;
  KeywordLine::Kind kind{};
  while (const auto line = nextBlockLine(cursor, kind)) {
    if (kind == KeywordLine::Kind::End) {
      open = std::max(0L, open - 1);
    } else if (open++ == 0) {
      outermost = line;
    }
  }
  return outermost;
}

std::optional<CountedLine> lineOf(std::string_view table, const KEPError& error) {
  const std::string_view key = error.GetMessageKey().View();
  if (key == "ERR_5002") return surplusEnd(table);
  if (key == "ERR_5003") return unclosedStart(table);
  return lineAt(table, countedLineOf(error));
}

struct Mark {
  std::size_t offset = 0;
  std::size_t width = 1;
};

// The word at or after an offset; one blank after the line when there is none.
Mark wordBehind(std::string_view line, std::size_t offset) {
  const std::size_t first = line.find_first_not_of(kBlanks, offset);
  if (first == std::string_view::npos) return {line.size() + (offset == line.size() ? 1 : 0), 1};
  const std::size_t end = line.find_first_of(kBlanks, first);
  return {first, (end == std::string_view::npos ? line.size() : end) - first};
}

Mark markOf(std::string_view line, std::string_view keyword) {
  const std::size_t at = keyword.empty() ? std::string_view::npos : line.find(keyword);
  if (at == std::string_view::npos) return wordBehind(line, 0);
  const std::size_t end = line.find_first_of(kBlanks, at);
  return wordBehind(line, end == std::string_view::npos ? line.size() : end);
}

std::string hintText(std::string_view key, const std::vector<KEPUnicodeString>& parameters) {
  return std::string(messageText("System", key, parameters).View());
}

std::array<std::string_view, ppword::kKeywords.size()> keywordTexts() {
  std::array<std::string_view, ppword::kKeywords.size()> texts;
  std::transform(ppword::kKeywords.begin(), ppword::kKeywords.end(), texts.begin(),
                 [](const ppword::Keyword& keyword) { return keyword.text; });
  return texts;
}

// What the line was most likely meant to be.
void addHint(std::string_view line, std::string_view keyword, const Mark& mark,
             Diagnostic& diagnostic) {
  if (keyword.empty()) {
    const std::string_view meant = nearest(line.substr(mark.offset, mark.width), keywordTexts());
    if (meant.empty()) return;
    diagnostic.message += hintText("HINT_MEANT", {KEPUnicodeString(meant)});
    diagnostic.meant = meant;
  } else if (mark.offset < line.size() && line[mark.offset - 1] == '\t') {
    diagnostic.message += hintText("HINT_TAB", {});
  }
}

bool isUnbalanced(std::string_view key) { return key == "ERR_5002" || key == "ERR_5003"; }

// Where the reader of the table found blocks without balance, which is after the line shown.
std::string countedText(std::string_view key, const KEPError& error) {
  if (!isUnbalanced(key)) return {};
  const KEPUnicodeString counted(std::to_string(countedLineOf(error)));
  return hintText("HINT_COUNTED", {counted});
}

// Nothing for an error that no line of the table makes.
std::optional<Diagnostic> placedError(const std::string& path, std::string_view key,
                                      const KEPError& error) {
  if (!isUnbalanced(key) && countedLineOf(error) == 0) return std::nullopt;
  const TableBytes table = TableBytes::read(path);
  const auto line = lineOf(table.text(), error);
  if (!line) return std::nullopt;
  Diagnostic diagnostic = tableErrorAt(path, key, table, *line);
  diagnostic.message += countedText(key, error);
  diagnostic.source = table.excerptAt(diagnostic.line, diagnostic.column);
  return diagnostic;
}

}  // namespace

Diagnostic tableErrorAt(const std::string& path, std::string_view key, const TableBytes& table,
                        const ppword::CountedLine& line) {
  Diagnostic diagnostic{Severity::Error, path, 0, 0, 1, std::string(key), {}, {}};
  diagnostic.message = messageText(kErrors, key, {}).View();
  const std::string_view keyword = keywordWithoutName(key);
  const Mark mark = markOf(line.text, keyword);
  if (!isUnbalanced(key)) addHint(line.text, keyword, mark, diagnostic);
  const auto [number, column] = table.placeOf(line.offset);
  diagnostic.line = number;
  diagnostic.column = column + static_cast<long>(mark.offset);
  diagnostic.width = static_cast<long>(mark.width);
  return diagnostic;
}

Diagnostic tableError(const std::string& path, const KEPError& error) {
  const std::string_view key = error.GetMessageKey().View();
  if (auto placed = placedError(path, key, error)) return *std::move(placed);
  // It may be known why the file cannot be opened.
  if (auto unreadable = key == kUnreadable ? unreadableTable(path) : std::nullopt) {
    return *std::move(unreadable);
  }
  Diagnostic diagnostic{Severity::Error, path, 0, 0, 1, std::string(key), {}, {}};
  diagnostic.message = messageText(error.GetCatalogue().View(), key, {}).View();
  return diagnostic;
}

}  // namespace host
