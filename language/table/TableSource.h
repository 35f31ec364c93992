#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ppword {

/// The most characters of a token, and of a line as it is read.
inline constexpr std::size_t kMostCharacters = 1023;

/// Where the text of a table comes from: one position that moves on with every read. Texts are
/// valid until the next operation.
class TableSource {
 public:
  /// Starts again at the beginning. False when the table cannot be opened; true, and every read
  /// meets end of file, when what was open could not be closed.
  virtual bool rewind() = 0;

  /// The next token; the position is directly after it. Nothing at end of file, and nothing from
  /// the first token of more than kMostCharacters on, which `tooLong` reports until a `seek`.
  virtual std::optional<std::string_view> nextToken() = 0;
  [[nodiscard]] virtual bool tooLong() const = 0;

  /// The rest of the line with its line feed, at most kMostCharacters of it. A carriage return
  /// before the line feed is dropped. Nothing at end of file.
  virtual std::optional<std::string_view> nextLine() = 0;

  /// A position to `seek` later; negative when the source does not know it.
  virtual long position() = 0;
  virtual bool seek(long position) = 0;

 protected:
  ~TableSource() = default;
};

/// The next token that does not begin with "/"; otherwise as TableSource::nextToken.
[[nodiscard]] std::optional<std::string_view> nextPlainToken(TableSource& source);

/// Reads up to the next token that does not begin with "/" and contains `text`. False at the end.
bool findToken(TableSource& source, std::string_view text);

/// The very next token; nothing when it does not begin with `prefix`.
[[nodiscard]] std::optional<std::string_view> nextName(TableSource& source,
                                                       std::string_view prefix);

/// How a walk over a table ended.
enum class Walk { Stopped, Whole, NotOpened };

/// Walks through the table from its beginning and calls `visit` after each token that does not
/// begin with "/" and contains `keyword`, until it returns true. The walk goes on where the visit
/// left the position.
template <class Visit>
Walk walkKeyword(TableSource& source, std::string_view keyword, Visit visit) {
  if (!source.rewind()) return Walk::NotOpened;
  while (findToken(source, keyword)) {
    if (visit()) return Walk::Stopped;
  }
  return Walk::Whole;
}

/// `name`: what follows the `index`-th keyword of a walk, which is given the visit to make. False
/// when there is none, or it does not begin with `prefix`.
template <class WalkKeywords>
[[nodiscard]] bool nameAtIndex(TableSource& source, WalkKeywords walk, std::string_view prefix,
                               int index, std::string& name) {
  int counter = 0;
  std::optional<std::string_view> found;
  walk([&] {
    if (++counter != index) return false;
    found = nextName(source, prefix);
    return true;
  });
  if (!found) return false;
  name = *found;
  return true;
}

/// Calls `visit` after each keyword of a walk, which is given the visit to make, with the name that
/// follows it (empty when that does not begin with `prefix`) and the position after the name. The
/// walk goes on after the keyword itself.
template <class WalkKeywords, class Visit>
void forEachName(TableSource& source, WalkKeywords walk, std::string_view prefix, Visit visit) {
  walk([&] {
    const long here = source.position();
    const std::string name(nextName(source, prefix).value_or(""));
    visit(name, source.position());
    return !source.seek(here);
  });
}

[[nodiscard]] bool contains(std::string_view text, std::string_view part);

}  // namespace ppword
