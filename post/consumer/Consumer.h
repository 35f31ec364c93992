#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

/// What the reader of a text takes. As it is made, a consumer takes everything.
struct Consumer {
  /// What characters a text may have: any; printable ASCII; capitals, digits, blanks and
  /// + - * / , . ( ) = $ '
  enum class Characters { Any, Ascii, Capitals };

  /// The columns of a line that a statement may use, 72 or 80; 0 for any number.
  int columns = 0;
  /// True for lines that end with CR LF.
  bool endsWithReturn = false;
  /// Columns 73 to 80 of each line have a number, so much greater than that of the line before; 0
  /// for none. It needs 72 columns.
  int sequenceStep = 0;
  Characters characters = Characters::Any;
  /// What is written in place of any other character; 0: a line with one is refused.
  char replacement = 0;
  /// How many letters and digits a word has at most; 0 for any number.
  int longestWord = 0;
};

/// The digits of a sequence number, in columns 73 to 80.
inline constexpr std::size_t kSequenceDigits = 8;

/// A sequence number as it is written: zeros before it, and more digits where it has more.
[[nodiscard]] std::string sequenceText(long number);

/// A character for messages: in quotes, or its byte.
[[nodiscard]] std::string shownCharacter(std::string_view character);

/// The character at a place of a text in UTF-8, or a byte that is none.
[[nodiscard]] std::string_view characterAt(std::string_view text, std::size_t at);

/// How many bytes the first columns of a line have; all of a line that has fewer columns.
[[nodiscard]] std::size_t bytesOfColumns(std::string_view line, std::size_t columns);

/// True for a character that the consumer takes.
[[nodiscard]] bool takes(const Consumer& consumer, std::string_view character);

/// What is written in place of a character that the consumer does not take: a capital for a small
/// letter; 0 when a line with it is refused.
[[nodiscard]] char replacementOf(std::string_view character, const Consumer& consumer);

/// The first word of a line with more than `longest` letters and digits, of a text only its own
/// word; empty when there is none.
[[nodiscard]] std::string_view longWord(std::string_view line, int longest, bool isText);

}  // namespace host
