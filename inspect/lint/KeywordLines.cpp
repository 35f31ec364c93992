#include "inspect/lint/KeywordLines.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

#include "inspect/diagnostics/TableError.h"
#include "inspect/diagnostics/TableText.h"

namespace host {
namespace {

/// What a line that contains `keyword` must contain too, and the error when it does not.
struct StartRule {
  std::string_view keyword;
  std::string_view name;
  std::string_view error;
};

// In the order in which the check asks.
constexpr std::array kStarts = {StartRule{"*START_MAJOR_WORDS_WITHOUT_PARAMETERS", "", ""},
                                StartRule{"*START_MAJOR_WORDS_WITH_TEXT", "", ""},
                                StartRule{"*START_MAJOR_WORDS_WITH_PARAMETERS", "", ""},
                                StartRule{"*START_MINOR_WORDS", "", ""},
                                StartRule{"*START_SYNTAXES", "", ""},
                                StartRule{"*START_SEQUENCE", "", ""},
                                StartRule{"START_NC_COMMAND", " NC_", "ERR_5004"},
                                StartRule{"START_NC_INSTRUCTION", " NC_", "ERR_5005"},
                                StartRule{"START_LIST", " MFG_", "ERR_5006"},
                                StartRule{"START_FORMAT", " MFG_", "ERR_5007"}};

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::string_view startError(std::string_view line) {
  const auto rule = std::find_if(kStarts.begin(), kStarts.end(), [line](const StartRule& start) {
    return contains(line, start.keyword);
  });
  if (rule == kStarts.end()) return "ERR_5008";
  return contains(line, rule->name) ? std::string_view() : rule->error;
}

std::string_view errorOf(std::string_view line) {
  if (contains(line, "*START")) return startError(line);
  if (contains(line, "*END")) return {};
  if (contains(line, "*INSERT")) return contains(line, " NC_") ? "" : "ERR_5000";
  return "ERR_5001";
}

/// A line as the check reads it: at most 1023 bytes, line end included.
CountedLine nextLine(std::string_view text, std::size_t& at, const TableBytes& bytes) {
  const auto [line, column] = bytes.placeOf(at);
  std::string counted;
  while (at < text.size() && counted.size() < kMostTableCharacters) {
    const char byte = text[at++];
    if (byte == '\n') break;
    if (byte == '\r' && at < text.size() && text[at] == '\n') continue;
    counted += byte;
  }
  return {std::move(counted), line, column};
}

/// Follows starts and ends through a table.
class Nesting {
 public:
  void start(CountedLine line) {
    ++starts_;
    const bool isInner =
        contains(line.text, "*START_SEQUENCE") || contains(line.text, "*START_LIST");
    const bool isInCommand = !open_.empty() && contains(open_.front().text, "*START_NC_");
    if (!(isInner && isInCommand)) closeAll();
    open_.push_back(std::move(line));
  }

  void end(CountedLine line) {
    ++ends_;
    if (open_.empty()) {
      surplus_.push_back(std::move(line));
    } else {
      open_.pop_back();
    }
  }

  void tell(const TableBytes& bytes, LintFindings& findings) {
    closeAll();
    tell(unclosed_, ends_ < starts_ ? "ERR_5003" : "", LintKey::UnclosedSection, bytes, findings);
    tell(surplus_, ends_ > starts_ ? "ERR_5002" : "", LintKey::SurplusEnd, bytes, findings);
  }

 private:
  void closeAll() {
    std::move(open_.begin(), open_.end(), std::back_inserter(unclosed_));
    open_.clear();
  }

  // What the check refuses has its key; what it does not see has one of the lint.
  static void tell(const std::vector<CountedLine>& lines, std::string_view error, LintKey key,
                   const TableBytes& bytes, LintFindings& findings) {
    for (const CountedLine& line : lines) {
      if (!error.empty()) {
        findings.add(tableErrorAt(findings.file(), error, line));
        continue;
      }
      findings.warn(key, {line.text, bytes.offsetOf(line.line, line.column)});
    }
  }

  std::vector<CountedLine> open_;
  std::vector<CountedLine> unclosed_;
  std::vector<CountedLine> surplus_;
  long starts_ = 0;
  long ends_ = 0;
};

}  // namespace

void lintKeywordLines(const TableBytes& bytes, LintFindings& findings) {
  Nesting nesting;
  for (std::size_t at = 0; at < bytes.text().size();) {
    CountedLine line = nextLine(bytes.text(), at, bytes);
    if (!line.text.starts_with('*')) continue;
    if (const std::string_view error = errorOf(line.text); !error.empty()) {
      findings.add(tableErrorAt(findings.file(), error, line));
    }
    if (contains(line.text, "*START")) {
      nesting.start(std::move(line));
    } else if (contains(line.text, "*END")) {
      nesting.end(std::move(line));
    }
  }
  nesting.tell(bytes, findings);
}

}  // namespace host
