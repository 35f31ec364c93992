#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "verify/Rules.h"
#include "verify/Statement.h"
#include "verify/TextLines.h"
#include "verify/Words.h"

namespace verify {

/// Whether columns 73 to 80 of the lines are numbers, which are not read: when those of the first
/// line, which is 80 columns wide, are a number; or in any case; or not.
enum class Cards { Recognised, Always, Never };

/// Reads a text statement by statement, in constant memory, and reports what a reader would
/// stumble over.
class StatementReader {
 public:
  /// The words and what the sink refers to must outlive the reader.
  StatementReader(ByteSource bytes, const Words& words, FindingSink report,
                  Cards cards = Cards::Recognised);
  /// Reads what is compared and nothing more: without findings, major words and tokens. `cards` is
  /// Always or Never.
  StatementReader(ByteSource bytes, const Words& words, Cards cards = Cards::Never);

  /// Sets `statement` to the next one; false at the end. Empty lines are no statements.
  [[nodiscard]] bool next(Statement& statement);
  /// Sets `line` to the one that the next statement begins with, without its number and the blanks
  /// at its end; false at the end of the text, and for a line that is too long. It is valid until
  /// the next call.
  [[nodiscard]] bool peek(std::string_view& line);
  /// Leaves out the line that peek() has set.
  void skipLine() noexcept { isPending_ = false; }

  /// The line that was read last, from 1.
  [[nodiscard]] long lines() const noexcept { return lines_.number(); }
  [[nodiscard]] bool hasSequenceNumbers() const noexcept { return hasSequenceNumbers_; }

 private:
  [[nodiscard]] bool nextLine();
  [[nodiscard]] bool findBegin();
  void begin(Statement& statement) const;
  void read(Statement& statement);
  void readText(Statement& statement, const WordRow* word);
  void readTokens(Statement& statement);
  void readBytes(Statement& statement);
  [[nodiscard]] bool addBytes(Statement& statement) const;
  [[nodiscard]] bool continues();
  void checkJoint(const Statement& statement, std::size_t first) const;
  void reportOpen(const TextPlace& place) const;

  TextLines lines_;
  const Words& words_;
  Cards cards_;
  /// Empty where nothing is reported.
  FindingSink report_;
  /// The line that was read last, without its number and the blanks at its end.
  std::string_view line_;
  bool hasSequenceNumbers_ = false;
  /// True when the line is not yet part of a statement.
  bool isPending_ = false;
};

}  // namespace verify
