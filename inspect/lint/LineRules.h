#pragma once

#include "inspect/lint/LineReading.h"
#include "inspect/lint/LintFindings.h"
#include "inspect/lint/TableBlocks.h"

namespace host {

/// Takes the warnings about one line.
class LineReport {
 public:
  LineReport(const TableLine& line, LintFindings& findings) : line_(line), findings_(findings) {}

  void warn(LintKey key, std::size_t position, std::size_t width, std::string_view subject) {
    findings_.warn(key, line_.offsetOf(position), width, subject);
  }

 private:
  const TableLine& line_;
  LintFindings& findings_;
};

/// Warns of arithmetic that is not computed as one expects, or loses text.
void lintArithmetic(const LineReading& reading, LineReport& report);
/// Warns of numbers with exponents in arithmetic.
void lintExponents(const LineReading& reading, LineReport& report);
/// Warns of references whose names are not what one expects.
void lintNames(const LineReading& reading, LineReport& report);

}  // namespace host
