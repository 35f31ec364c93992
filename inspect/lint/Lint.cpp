#include "inspect/lint/Lint.h"

#include "inspect/diagnostics/TableWarnings.h"
#include "inspect/lint/LineRules.h"
#include "inspect/lint/SyntaxLineReader.h"
#include "inspect/lint/TableRules.h"

namespace host {
namespace {

void lintLine(const TableLine& line, const LineReading& reading, const LintParameters& parameters,
              LintFindings& findings) {
  LineReport report(line, reading, findings);
  if (line.isAfterAnother) report.warn(LintKey::SplitLine, 0, reading.text.size(), line.text);
  lintArithmetic(reading, report);
  lintExponents(reading, report);
  lintNames(reading, report);
  lintParameters(reading, parameters, report);
  lintWidth(reading, parameters, report);
}

}  // namespace

std::vector<Diagnostic> lintTable(const std::string& path) {
  const TableBytes bytes = TableBytes::read(path);
  const TableBlocks blocks = readBlocks(bytes);
  const LintParameters parameters(blocks);
  LintFindings findings(path, bytes);
  lintKeywordLines(bytes, findings);
  lintBlocks(blocks, findings);
  lintWords(blocks, findings);
  SyntaxLineReader reader;
  for (const TableLine& line : blocks.lines) {
    lintLine(line, reader.read(line.text), parameters, findings);
  }
  for (Diagnostic& warning : allTableWarnings(bytes, path)) findings.add(std::move(warning));
  return findings.take();
}

}  // namespace host
