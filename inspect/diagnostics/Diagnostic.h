#pragma once

#include <string>
#include <string_view>

namespace host {

/// A part of a source line: what is at `firstColumn` (from 1) and after it.
struct Excerpt {
  std::string text;
  long firstColumn = 1;
  /// True when the line goes on after the excerpt.
  bool goesOn = false;
};

/// How far an excerpt reaches before and after its column.
inline constexpr long kExcerptReach = 400;

/// Of a note nothing has to be done.
enum class Severity { Error, Warning, Note };

/// "error", "warning" or "note".
[[nodiscard]] constexpr std::string_view severityName(Severity severity) {
  constexpr std::string_view kNames[] = {"error", "warning", "note"};
  return kNames[static_cast<std::size_t>(severity)];
}

/// A finding about an input file. Line and column count from 1, the column in bytes; 0 where the
/// finding has no such place.
struct Diagnostic {
  Severity severity = Severity::Error;
  std::string file;
  long line = 0;
  long column = 0;
  /// How many bytes from `column` on the finding is about; at least 1.
  long width = 1;
  /// The message key of an error ("ERR_5004"), the name of a warning ("long-token"), or empty.
  std::string key;
  std::string message;
  /// Empty where the line is not at hand.
  Excerpt source{};
  /// What the bytes of the finding are probably meant to be; empty where that is unknown.
  std::string meant{};

  [[nodiscard]] bool hasSource() const { return line > 0 && column > 0 && !source.text.empty(); }
};

/// The part of `line` around a column, which may be one after its end.
[[nodiscard]] Excerpt excerptOf(std::string_view line, long column);

/// A finding for people: `FILE:LINE:COL: error KEY: message`, the source line and a caret line,
/// each ended by a line feed. The source line is cut to a width that terminals hold. With
/// `coloured` the place, the severity and the caret are between the codes of a terminal
/// (ECMA-48, 8.3.117).
[[nodiscard]] std::string diagnosticText(const Diagnostic& diagnostic, bool coloured = false);

/// `text` with everything that a terminal might obey or hide (control characters, bytes that are
/// not UTF-8, marks that turn the direction of writing) written as "\xNN".
[[nodiscard]] std::string terminalSafe(std::string_view text);

}  // namespace host
