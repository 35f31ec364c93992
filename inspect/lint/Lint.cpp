#include "inspect/lint/Lint.h"

#include <algorithm>

#include "inspect/diagnostics/TableWarnings.h"
#include "inspect/lint/LineWords.h"
#include "inspect/lint/StatementRules.h"
#include "inspect/lint/SyntaxLineReader.h"
#include "inspect/lint/TableRules.h"
#include "inspect/lint/VocabularyRules.h"
#include "language/table/TableSource.h"

namespace host {
namespace {

/// Lints the lines of a table, and gathers what they use.
class LineLint {
 public:
  LineLint(const TableBlocks& blocks, std::string_view table, const Consumer* consumer,
           LintFindings& findings)
      : consumer_(consumer),
        parameters_(blocks),
        vocabulary_(blocks),
        statements_(blocks),
        findings_(findings),
        uses_(table) {}

  void lint(const TableLine& line) {
    // No reader reads such a line: a word of it is too long, which has a warning of its own.
    if (line.text.size() > 2 * ppword::kMostCharacters) return;
    const LineReading& reading = reader_.read(line.text);
    LineReport report(line, reading, findings_);
    if (line.isAfterAnother) report.warn(LintKey::SplitLine, 0, reading.text.size(), line.text);
    lintArithmetic(reading, report);
    lintExponents(reading, report);
    lintNames(reading, report);
    lintCharacters(reading, report);
    statements_.read(line, reading, report);
    lintParameters(reading, parameters_, report);
    lintWordsOfLine(line, reading, vocabulary_, report, uses_);
    if (consumer_ == nullptr) return lintWidth(reading, parameters_, report);
    const auto kind = vocabulary_.kindOf(line.text.substr(0, line.text.find_first_of(" /,")));
    const bool isText = reading.isProse || kind == WordKind::Text;
    lintConsumer(reading, parameters_, *consumer_, isText, report);
  }

  /// What needs all lines.
  void lintUses(const TableBlocks& blocks) {
    for (const auto& list : blocks.lists) addWords(list.values);
    lintVocabulary(blocks, vocabulary_, uses_, findings_);
    lintNamesOfBlocks(blocks, uses_, findings_);
  }

 private:
  void addWords(const std::vector<Token>& values) {
    for (const auto& [text, offset] : values) {
      const bool isWord = std::all_of(text.begin(), text.end(), isWordCharacter) &&
                          (text.front() < '0' || text.front() > '9');
      if (isWord) uses_.addWord(text, offset, vocabulary_.knows(text));
    }
  }

  const Consumer* consumer_;
  SyntaxLineReader reader_;
  LintParameters parameters_;
  LintVocabulary vocabulary_;
  Statements statements_;
  LintFindings& findings_;
  TableUses uses_;
};

}  // namespace

std::vector<Diagnostic> lintTable(const std::string& path, long most, const Consumer* consumer) {
  return lintTable(TableBytes::read(path), path, most, consumer);
}

std::vector<Diagnostic> lintTable(const TableBytes& bytes, const std::string& path, long most,
                                  const Consumer* consumer) {
  // First, so that what it needs and what the blocks need is not in memory at once.
  auto warnings = allTableWarnings(bytes, path);
  const TableBlocks blocks = readBlocksWithoutLines(bytes);
  LintFindings findings(path, bytes, most);
  lintKeywordLines(bytes, findings);
  lintBlocks(blocks, findings);
  lintWords(blocks, findings);
  LineLint lines(blocks, bytes.text(), consumer, findings);
  visitLines(bytes, [&lines](const TableLine& line) { lines.lint(line); });
  lines.lintUses(blocks);
  for (Diagnostic& warning : warnings) findings.add(std::move(warning));
  return findings.take();
}

std::vector<Diagnostic> tableErrors(const TableBytes& bytes, const std::string& path) {
  LintFindings findings(path, bytes, kMostOfAKind);
  lintKeywordLines(bytes, findings);
  std::vector<Diagnostic> errors = findings.take();
  std::erase_if(errors, [](const Diagnostic& each) { return each.severity != Severity::Error; });
  return errors;
}

}  // namespace host
