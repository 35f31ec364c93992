#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The longest block that rs274 takes, without its line feed.
inline constexpr std::size_t kLongestBlock = 252;

/// A word of a block: a letter, small, and the number after it.
struct NcWord {
  char letter = ' ';
  double value = 0.0;
};

/// A block of an NC program as rs274 reads it: without blanks and comments, in small letters.
class NcBlock {
 public:
  explicit NcBlock(std::string_view line);

  [[nodiscard]] const std::string& code() const noexcept { return code_; }
  /// The words with a plain number, outside of expressions, names and O-words.
  [[nodiscard]] std::vector<NcWord> words() const;
  /// What an O-word calls, "name" or "123", also for M98 P123; "#" for a number that is computed.
  /// Empty for another block.
  [[nodiscard]] std::string called() const;
  /// What an O-word defines: the name or number of `sub`. Empty for another block.
  [[nodiscard]] std::string defined() const;

 private:
  [[nodiscard]] std::string oWord(std::string_view keyword) const;
  std::string code_;
};

/// True for the first lines of a text when one of them has a word such as G1 or M6, and none begins
/// a block of a PP table.
[[nodiscard]] bool looksLikeProgram(std::string_view firstLines);

/// The line with this block number in place of its own. The line as it is when it is empty, has no
/// block or begins with a percent sign; without a number when it would be too long with one.
[[nodiscard]] std::string numberedBlock(std::string_view line, const std::string& number);

}  // namespace host
