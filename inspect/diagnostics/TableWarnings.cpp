#include "inspect/diagnostics/TableWarnings.h"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>
#include <utility>

#include "inspect/diagnostics/InsertChains.h"
#include "inspect/diagnostics/TableText.h"
#include "inspect/lint/TextWords.h"

namespace host {
namespace {

constexpr std::array<std::string_view, 9> kSections = {"*START_MAJOR_WORDS_WITHOUT_PARAMETERS",
                                                       "*START_MAJOR_WORDS_WITH_TEXT",
                                                       "*START_MAJOR_WORDS_WITH_PARAMETERS",
                                                       "*START_MINOR_WORDS",
                                                       "*START_SYNTAXES",
                                                       "*START_NC_COMMAND",
                                                       "*START_NC_INSTRUCTION",
                                                       "*START_LIST",
                                                       "*START_FORMAT"};
constexpr std::size_t kMostWarnings = 50;

// One pass over the tokens of a table, with the rules by which its reader finds blocks.
class TableScan {
 public:
  TableScan(const std::string& path, const std::function<bool(std::string_view)>& canPrint,
            std::size_t mostWarnings)
      : path_(path), canPrint_(canPrint), mostWarnings_(mostWarnings), text_(path) {
    while (const auto token = nextPlain()) readBlock(*token);
    if (!anySection_) warn("no-section", {}, "the table has no block, so it changes nothing");
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
  std::optional<TableToken> next() {
    auto token = nextTableToken(text_);
    if (token && token->length > kMostTableCharacters) {
      warn("long-token", *token,
           "a word of " + std::to_string(token->length) +
               " characters; words of more than 1023 cannot be read, nor can what stands behind");
    }
    return token;
  }

  std::optional<TableToken> nextPlain() {
    auto token = next();
    while (token && token->text.starts_with('/')) token = next();
    return token;
  }

  void readBlock(const TableToken& keyword) {
    anySection_ = anySection_ || std::any_of(kSections.begin(), kSections.end(), [&](auto section) {
                    return keyword.contains(section);
                  });
    if (keyword.contains("*START_FORMAT")) {
      readFormat();
    } else if (keyword.contains("*START_NC_COMMAND")) {
      readCommand(commands_);
    } else if (keyword.contains("*START_NC_INSTRUCTION")) {
      readCommand(instructions_);
    }
  }

  void readFormat() {
    const auto name = next();
    if (!name || !name->text.starts_with("MFG_")) return;
    std::optional<TableToken> format;
    auto token = nextPlain();
    for (; token && token->text != "*END"; token = nextPlain()) format = std::move(token);
    constexpr const char* kMend = "; write one conversion of e, f, g or a, such as %11.5f";
    if (format && !canPrint_(format->text)) {
      warn("unusable-format", *format,
           "no number can be printed with the format of " + name->text + kMend);
    } else if (!format && token) {
      warn("unusable-format", *name,
           "the section of " + name->text + " holds no format, so nothing is printed for it" +
               kMend);
    }
  }

  void readCommand(std::vector<CommandBody>& bodies) {
    const auto name = next();
    if (!name || !name->text.starts_with("NC_")) return;
    CommandBody body{name->text, 0, {}};
    for (auto token = nextPlain(); token; token = nextPlain()) {
      if (token->contains("*START_LIST")) {
        skipList();
      } else if (token->contains("*START_SEQUENCE")) {
        continue;
      } else if (token->contains("*END")) {
        bodies.push_back(std::move(body));
        return;
      } else if (token->contains("*INSERT")) {
        const auto inserted = next();
        if (!inserted || !inserted->text.starts_with("NC_")) return;
        body.inserts.push_back({inserted->text, token->line, token->column});
      } else {
        ++body.elements;
        if (takesRestOfLine(token->text)) static_cast<void>(nextCountedLine(text_));
      }
    }
  }

  void skipList() {
    auto token = nextPlain();
    while (token && !token->contains("*END")) token = nextPlain();
  }

  void warn(const InsertFault& fault) {
    const std::string& command = fault.command->name;
    const std::size_t width = std::string_view("*INSERT ").size() + fault.insert->name.size();
    warn("endless-insert", {{}, width, fault.insert->line, fault.insert->column},
         fault.endless
             ? "the inserts of " + command + " never end, so its lines cannot be read"
             : "the inserts of " + command + " give more than 100000 lines and cannot be read");
  }

  void warn(std::string_view key, const TableToken& token, std::string message) {
    if (warnings_.size() == mostWarnings_) {
      ++notShown_;
      return;
    }
    warnings_.push_back({Severity::Warning,
                         path_,
                         token.line,
                         token.column,
                         static_cast<long>(std::max<std::size_t>(token.length, 1)),
                         std::string(key),
                         std::move(message),
                         {}});
  }

  const std::string& path_;
  const std::function<bool(std::string_view)>& canPrint_;
  std::size_t mostWarnings_;
  TableText text_;
  bool anySection_ = false;
  std::vector<CommandBody> commands_;
  std::vector<CommandBody> instructions_;
  std::vector<Diagnostic> warnings_;
  std::size_t notShown_ = 0;
};

}  // namespace

std::vector<Diagnostic> allTableWarnings(const std::string& path,
                                         const std::function<bool(std::string_view)>& canPrint) {
  return TableScan(path, canPrint, std::string::npos).takeWarnings();
}

std::vector<Diagnostic> tableWarnings(const std::string& path,
                                      const std::function<bool(std::string_view)>& canPrint) {
  auto warnings = TableScan(path, canPrint, kMostWarnings).takeWarnings();
  for (Diagnostic& warning : warnings) {
    if (warning.line > 0) warning.source = excerptAt(path, warning.line, warning.column);
  }
  return warnings;
}

}  // namespace host
