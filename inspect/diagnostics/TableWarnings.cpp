#include "inspect/diagnostics/TableWarnings.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

#include "inspect/diagnostics/InsertChains.h"
#include "language/number/NumberFormat.h"
#include "language/table/CommandSyntax.h"
#include "language/table/Keywords.h"
#include "language/table/TableCursor.h"

namespace host {
namespace {

using ppword::KeywordKind;
using ppword::kMostCharacters;
using ppword::Token;

constexpr std::size_t kMostWarnings = 50;

// One pass over the tokens of a table, with the rules by which its reader finds blocks.
class TableScan {
 public:
  TableScan(const TableBytes& table, const std::string& path, std::size_t mostWarnings)
      : table_(table), path_(path), mostWarnings_(mostWarnings), cursor_(table.text()) {
    while (const auto token = nextPlain()) readBlock(*token);
    if (!anySection_) {
      warn("no-section", {0, 0}, 1, "the table has no block, so it changes nothing");
    }
    // Inserts mean commands before instructions.
    commands_.insert(commands_.end(), std::make_move_iterator(instructions_.begin()),
                     std::make_move_iterator(instructions_.end()));
    for (const InsertFault& fault : insertFaults(commands_)) warn(fault);
  }
  TableScan(const TableScan&) = delete;
  TableScan& operator=(const TableScan&) = delete;

  [[nodiscard]] std::vector<Diagnostic> takeWarnings() {
    std::stable_sort(warnings_.begin(), warnings_.end(), [](const auto& left, const auto& right) {
      return std::tie(left.line, left.column) < std::tie(right.line, right.column);
    });
    if (notShown_ > 0) {
      warnings_.push_back({Severity::Warning,
                           path_,
                           0,
                           0,
                           1,
                           "more-warnings",
                           std::to_string(notShown_) + " more warnings are not shown",
                           {}});
    }
    return std::move(warnings_);
  }

 private:
  std::optional<Token> next() {
    auto token = cursor_.nextToken();
    if (!token || token->text.size() <= kMostCharacters) return token;
    warnOfLongWord(*token);
    token->text = token->text.substr(0, kMostCharacters + 1);
    return token;
  }

  void warnOfLongWord(const Token& word) {
    warn("long-token", word,
         "a word of " + std::to_string(word.text.size()) + " characters; words of more than " +
             std::to_string(kMostCharacters) + " cannot be read, nor can what follows");
  }

  /// The rest of a line with text. What looks for the blocks of a table reads its words too.
  void readText() {
    ppword::TableCursor words(cursor_);
    const auto line = cursor_.nextLine();
    const std::size_t end = line ? line->offset + line->text.size() : 0;
    for (auto word = words.nextToken(); word && word->offset < end; word = words.nextToken()) {
      if (word->text.size() > kMostCharacters) warnOfLongWord(*word);
    }
  }

  std::optional<Token> nextPlain() {
    auto token = next();
    while (token && token->text.starts_with('/')) token = next();
    return token;
  }

  void readBlock(const Token& token) {
    const ppword::Keyword* const keyword = ppword::keywordIn(token.text);
    if (keyword == nullptr) return;
    anySection_ = anySection_ || isSection(keyword->kind);
    if (keyword->kind == KeywordKind::Format) readFormat();
    if (keyword->kind != KeywordKind::Command) return;
    readCommand(keyword->text == ppword::kCommandKeyword ? commands_ : instructions_);
  }

  static bool isSection(KeywordKind kind) {
    return kind != KeywordKind::Sequence && kind != KeywordKind::Insert && kind != KeywordKind::End;
  }

  void readFormat() {
    const auto name = next();
    if (!name || !name->text.starts_with(ppword::kParameterPrefix)) return;
    std::optional<Token> format;
    auto token = nextPlain();
    int words = 0;
    for (; token && token->text != ppword::kEndKeyword; token = nextPlain(), ++words) {
      format = std::move(token);
    }
    constexpr const char* kMend = "; write one conversion of e, f, g or a, such as %11.5f";
    if (format && !ppword::printsNumbers(format->text)) {
      warn("unusable-format", *format,
           "no number can be printed with the format of " + std::string(name->text) +
               (words > 1 ? "; a format is one word: leave out the blanks" : kMend));
    } else if (!format && token) {
      warn("unusable-format", *name,
           "the section of " + std::string(name->text) +
               " holds no format, so nothing is printed for it" + kMend);
    }
  }

  void readCommand(std::vector<CommandBody>& bodies) {
    const auto name = next();
    if (!name || !name->text.starts_with(ppword::kCommandPrefix)) return;
    CommandBody body{name->text, 0, {}};
    for (auto token = nextPlain(); token; token = nextPlain()) {
      const auto keyword = ppword::keywordInBody(token->text);
      if (!keyword) {
        ++body.elements;
        if (ppword::isTextWord(token->text)) readText();
      } else if (*keyword == KeywordKind::List) {
        skipList();
      } else if (*keyword == KeywordKind::End) {
        bodies.push_back(std::move(body));
        return;
      } else if (*keyword == KeywordKind::Insert) {
        const auto inserted = next();
        if (!inserted || !inserted->text.starts_with(ppword::kCommandPrefix)) return;
        body.inserts.push_back({inserted->text, token->offset});
      }
    }
  }

  void skipList() {
    auto token = nextPlain();
    while (token && !token->contains(ppword::kEndKeyword)) token = nextPlain();
  }

  void warn(const InsertFault& fault) {
    const std::string command(fault.command->name);
    const std::size_t width = ppword::kInsertKeyword.size() + 1 + fault.insert->name.size();
    warn("endless-insert", table_.placeOf(fault.insert->offset), width,
         fault.endless ? "the inserts of " + command + " never end, so its lines cannot be read"
                       : "the inserts of " + command + " make more than " +
                             std::to_string(ppword::kMostElements) + " lines and cannot be read");
  }

  void warn(std::string_view key, const Token& token, std::string message) {
    warn(key, table_.placeOf(token.offset), token.text.size(), std::move(message));
  }

  void warn(std::string_view key, TableBytes::Place place, std::size_t width, std::string message) {
    if (warnings_.size() == mostWarnings_) {
      ++notShown_;
      return;
    }
    warnings_.push_back({Severity::Warning,
                         path_,
                         place.line,
                         place.column,
                         static_cast<long>(width),
                         std::string(key),
                         std::move(message),
                         {}});
  }

  const TableBytes& table_;
  const std::string& path_;
  std::size_t mostWarnings_;
  ppword::TableCursor cursor_;
  bool anySection_ = false;
  std::vector<CommandBody> commands_;
  std::vector<CommandBody> instructions_;
  std::vector<Diagnostic> warnings_;
  std::size_t notShown_ = 0;
};

}  // namespace

std::vector<Diagnostic> allTableWarnings(const TableBytes& table, const std::string& path) {
  return TableScan(table, path, std::string::npos).takeWarnings();
}

std::vector<Diagnostic> tableWarnings(const std::string& path) {
  const TableBytes table = TableBytes::read(path);
  auto warnings = TableScan(table, path, kMostWarnings).takeWarnings();
  for (Diagnostic& warning : warnings) {
    if (warning.line > 0) warning.source = table.excerptAt(warning.line, warning.column);
  }
  return warnings;
}

}  // namespace host
