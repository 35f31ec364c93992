#pragma once

#include <optional>
#include <string_view>

#include "System/KEPString.h"

namespace ppword {

/// The most characters of a token, and of a line as it is read.
inline constexpr int kMostCharacters = 1023;

/// Where the text of a table comes from: one position that moves on with every read. Texts are
/// valid until the next operation.
class TableSource {
 public:
  /// Starts again at the beginning. False when the table cannot be opened; true, and every read
  /// meets end of file, when what was open could not be closed.
  virtual bool rewind() = 0;

  /// The next token; the position is directly behind it. Nothing at end of file, and nothing from
  /// the first token of more than kMostCharacters on, which `tooLong` tells until a `seek`.
  virtual std::optional<std::string_view> nextToken() = 0;
  [[nodiscard]] virtual bool tooLong() const = 0;

  /// The rest of the line with its line feed, at most kMostCharacters of it. A carriage return
  /// before the line feed is dropped. Nothing at end of file.
  virtual std::optional<std::string_view> nextLine() = 0;

  /// A position to `seek` later; negative when the source cannot tell.
  virtual long position() = 0;
  virtual bool seek(long position) = 0;

 protected:
  ~TableSource() = default;
};

/// The next token that does not begin with "/"; otherwise as TableSource::nextToken.
[[nodiscard]] std::optional<std::string_view> nextPlainToken(TableSource& source);

/// Reads up to the next token that does not begin with "/" and contains `text`. False at the end.
bool findToken(TableSource& source, std::string_view text);

/// Reads on to the keyword token that raises `counter` to `index`, and the token behind it, which
/// becomes `name` if it begins with `prefix`. False when it does not, and at the end.
[[nodiscard]] bool nameAtIndex(TableSource& source, std::string_view keyword,
                               std::string_view prefix, int index, int& counter, KEPString& name);

[[nodiscard]] bool contains(std::string_view text, std::string_view part);

}  // namespace ppword
