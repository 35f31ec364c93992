#include "inspect/lint/Lint.h"

#include "inspect/diagnostics/TableWarnings.h"
#include "inspect/lint/KeywordLines.h"
#include "inspect/lint/ReferenceRules.h"
#include "inspect/lint/WordRules.h"

namespace host {
namespace {

void lintLine(const TableLine& line, const LintParameters& parameters, LintFindings& findings) {
  const LineReading reading = readLine(line.text);
  LineReport report(line, findings);
  if (line.isBehindAnother) report.warn(LintKey::SplitLine, 0, line.text.size(), line.text);
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
  for (const TableLine& line : blocks.lines) lintLine(line, parameters, findings);
  for (Diagnostic& warning : allTableWarnings(bytes, path)) findings.add(std::move(warning));
  return findings.take();
}

}  // namespace host
