#include "inspect/diagnostics/TableError.h"

#include <array>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "host/system/MessageCatalogue.h"
#include "inspect/diagnostics/TableText.h"
#include "post/text/SpellingSuggestion.h"

namespace host {
namespace {

constexpr std::string_view kErrors = "ManufacturingError";
constexpr std::string_view kBlanks = " \t\v\f\r";

constexpr std::array<std::string_view, 12> kKeywords = {"*START_MAJOR_WORDS_WITHOUT_PARAMETERS",
                                                        "*START_MAJOR_WORDS_WITH_TEXT",
                                                        "*START_MAJOR_WORDS_WITH_PARAMETERS",
                                                        "*START_MINOR_WORDS",
                                                        "*START_SYNTAXES",
                                                        "*START_NC_COMMAND",
                                                        "*START_NC_INSTRUCTION",
                                                        "*START_LIST",
                                                        "*START_FORMAT",
                                                        "*START_SEQUENCE",
                                                        "*INSERT",
                                                        "*END"};

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// The keyword after which an error misses a name; empty for the other errors.
std::string_view keywordWithoutName(std::string_view key) {
  if (key == "ERR_5000") return "*INSERT";
  if (key == "ERR_5004") return "START_NC_COMMAND";
  if (key == "ERR_5005") return "START_NC_INSTRUCTION";
  if (key == "ERR_5006") return "START_LIST";
  if (key == "ERR_5007") return "START_FORMAT";
  return {};
}

long countedLineOf(const KEPError& error) {
  if (error.GetNLSParameters().empty()) return 0;
  const std::string_view text = error.GetNLSParameters().front().View();
  long line = 0;
  std::from_chars(text.data(), text.data() + text.size(), line);
  return line;
}

std::optional<CountedLine> lineAt(const std::string& path, long counted) {
  TableText text(path);
  std::optional<CountedLine> line;
  for (long number = 0; number < counted; ++number) {
    auto next = nextCountedLine(text);
    if (!next) break;
    line = std::move(next);
  }
  return line;
}

// The first *END that closes no block.
std::optional<CountedLine> surplusEnd(const std::string& path) {
  TableText text(path);
  long open = 0;
  while (auto line = nextCountedLine(text)) {
    if (!line->text.starts_with('*')) continue;
    if (contains(line->text, "*START")) {
      ++open;
    } else if (contains(line->text, "*END") && --open < 0) {
      return line;
    }
  }
  return std::nullopt;
}

// The first *START that no *END closes: the outermost block that is open at the end.
std::optional<CountedLine> unclosedStart(const std::string& path) {
  TableText text(path);
  long open = 0;
  std::optional<CountedLine> outermost;
  while (auto line = nextCountedLine(text)) {
    if (!line->text.starts_with('*')) continue;
    if (contains(line->text, "*START")) {
      if (open++ == 0) outermost = std::move(line);
    } else if (contains(line->text, "*END") && open > 0) {
      --open;
    }
  }
  return outermost;
}

std::optional<CountedLine> lineOf(const std::string& path, const KEPError& error) {
  const std::string_view key = error.GetMessageKey().View();
  if (key == "ERR_5002") return surplusEnd(path);
  if (key == "ERR_5003") return unclosedStart(path);
  return lineAt(path, countedLineOf(error));
}

struct Mark {
  std::size_t offset = 0;
  std::size_t width = 1;
};

// The word at or behind an offset; one blank behind the line when there is none.
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

// What the line was most likely meant to be.
std::string hint(std::string_view line, std::string_view keyword, const Mark& mark) {
  if (keyword.empty()) {
    const std::string_view meant = nearest(line.substr(mark.offset, mark.width), kKeywords);
    return meant.empty() ? "" : hintText("HINT_MEANT", {KEPUnicodeString(meant)});
  }
  const bool afterTab = mark.offset < line.size() && line[mark.offset - 1] == '\t';
  return afterTab ? hintText("HINT_TAB", {}) : "";
}

}  // namespace

Diagnostic tableErrorAt(const std::string& path, std::string_view key, const CountedLine& line) {
  Diagnostic diagnostic{Severity::Error, path, 0, 0, 1, std::string(key), {}, {}};
  diagnostic.message = messageText(kErrors, key, {}).View();
  const std::string_view keyword = keywordWithoutName(key);
  const Mark mark = markOf(line.text, keyword);
  const bool unbalanced = key == "ERR_5002" || key == "ERR_5003";
  if (!unbalanced) diagnostic.message += hint(line.text, keyword, mark);
  diagnostic.line = line.line;
  diagnostic.column = line.column + static_cast<long>(mark.offset);
  diagnostic.width = static_cast<long>(mark.width);
  return diagnostic;
}

Diagnostic tableError(const std::string& path, const KEPError& error) {
  const std::string_view key = error.GetMessageKey().View();
  if (const auto line = lineOf(path, error)) {
    Diagnostic diagnostic = tableErrorAt(path, key, *line);
    diagnostic.source = excerptAt(path, diagnostic.line, diagnostic.column);
    return diagnostic;
  }
  Diagnostic diagnostic{Severity::Error, path, 0, 0, 1, std::string(key), {}, {}};
  diagnostic.message = messageText(error.GetCatalogue().View(), key, {}).View();
  return diagnostic;
}

}  // namespace host
