#pragma once

#include "inspect/lint/LineReading.h"
#include "inspect/lint/LintFindings.h"
#include "inspect/lint/LintParameters.h"
#include "inspect/lint/TableBlocks.h"

namespace host {

struct Consumer;

/// Takes the warnings about one line.
class LineReport {
 public:
  LineReport(const TableLine& line, const LineReading& reading, LintFindings& findings)
      : line_(line), reading_(reading), findings_(findings) {}

  /// False when a further finding of the kind would only be counted.
  [[nodiscard]] bool isShown(LintKey key) const { return findings_.isShown(key); }
  /// `position` and `width`: of the reading's text.
  void warn(LintKey key, std::size_t position, std::size_t width, std::string_view subject,
            std::string_view meant = {}) {
    const std::size_t written = reading_.written(position, width).size();
    findings_.warn(key, line_.offsetOf(reading_.lineOffset(position)), written, subject, meant);
  }

  /// Where a position of the reading's text is in the table.
  [[nodiscard]] std::size_t offsetOf(std::size_t position) const {
    return line_.offsetOf(reading_.lineOffset(position));
  }
  /// Warns of one byte of the table, which can be in an earlier line.
  void warnAt(LintKey key, std::size_t offset, std::string_view subject) {
    findings_.warn(key, offset, 1, subject);
  }

 private:
  const TableLine& line_;
  const LineReading& reading_;
  LintFindings& findings_;
};

/// Warns of arithmetic that is not computed as one expects, or loses text.
void lintArithmetic(const LineReading& reading, LineReport& report);
/// Warns of numbers with exponents in arithmetic.
void lintExponents(const LineReading& reading, LineReport& report);
/// Warns of references whose names are not what one expects.
void lintNames(const LineReading& reading, LineReport& report);

/// Warns of references to unknown parameters.
void lintParameters(const LineReading& reading, const LintParameters& parameters,
                    LineReport& report);

/// Warns of a line that the consumer does not take, whatever its values are. `isText`: for a line
/// whose rest is text.
void lintConsumer(const LineReading& reading, const LintParameters& parameters,
                  const Consumer& consumer, bool isText, LineReport& report);

/// Warns of a line that can be put out wider than 72 columns.
void lintWidth(const LineReading& reading, const LintParameters& parameters, LineReport& report);

}  // namespace host
