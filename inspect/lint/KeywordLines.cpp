#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include "inspect/diagnostics/TableErrorPlace.h"
#include "inspect/lint/TableRules.h"
#include "language/table/Keywords.h"
#include "language/table/TableCheck.h"
#include "language/table/TableCursor.h"

namespace host {
namespace {

using ppword::CountedLine;
using ppword::KeywordLine;

/// Follows starts and ends through a table.
class Nesting {
 public:
  void start(const CountedLine& line) {
    ++starts_;
    const bool isInner = holds(line, ppword::kSequenceKeyword) || holds(line, ppword::kListKeyword);
    const bool isInCommand = !open_.empty() && holds(open_.front(), "*START_NC_");
    if (!(isInner && isInCommand)) closeAll();
    open_.push_back(line);
  }

  void end(const CountedLine& line) {
    ++ends_;
    if (open_.empty()) {
      surplus_.push_back(line);
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
  static bool holds(const CountedLine& line, std::string_view keyword) {
    return line.text.find(keyword) != std::string_view::npos;
  }

  void closeAll() {
    std::copy(open_.begin(), open_.end(), std::back_inserter(unclosed_));
    open_.clear();
  }

  // What the check refuses has its key; what it does not see has one of the lint.
  static void tell(const std::vector<CountedLine>& lines, std::string_view error, LintKey key,
                   const TableBytes& bytes, LintFindings& findings) {
    for (const CountedLine& line : lines) {
      if (!error.empty()) {
        findings.add(tableErrorAt(findings.file(), error, bytes, line));
        continue;
      }
      findings.warn(key, {line.text, line.offset});
    }
  }

  std::vector<CountedLine> open_;
  std::vector<CountedLine> unclosed_;
  std::vector<CountedLine> surplus_;
  long starts_ = 0;
  long ends_ = 0;
};

/// Warns of a keyword with characters around it.
void lintExactness(const CountedLine& line, LintFindings& findings) {
  const std::string_view token = line.text.substr(0, line.text.find_first_of(" \t\r\n\v\f"));
  const ppword::Keyword* const keyword = ppword::keywordIn(token);
  if (keyword == nullptr || token == keyword->text) return;
  findings.warn(LintKey::InexactKeyword, line.offset, token.size(),
                std::string(token) + " is read as " + std::string(keyword->text));
}

}  // namespace

void lintKeywordLines(const TableBytes& bytes, LintFindings& findings) {
  Nesting nesting;
  ppword::TableCursor cursor(bytes.text());
  while (const auto line = cursor.nextLine()) {
    if (!line->text.starts_with('*')) continue;
    const KeywordLine checked = ppword::checkKeywordLine(line->text);
    if (checked.fault) findings.add(tableErrorAt(findings.file(), *checked.fault, bytes, *line));
    lintExactness(*line, findings);
    if (checked.kind == KeywordLine::Kind::Start) nesting.start(*line);
    if (checked.kind == KeywordLine::Kind::End) nesting.end(*line);
  }
  nesting.tell(bytes, findings);
}

}  // namespace host
