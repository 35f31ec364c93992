#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "verify/Statement.h"

namespace verify {

/// What a statement is for who reads the text.
enum class EventKind {
  Move,
  Rapid,
  Axis,
  Circle,
  /// What leads to a circle or ends it: its direction, its plane, the GOTO after CIRCLE.
  CirclePart,
  Helix,
  Contour,
  Feed,
  Spindle,
  Tool,
  Coolant,
  Dwell,
  Units,
  Stop,
  Cycle,
  Comment,
  /// A word that is known and none of these.
  Other,
  Unknown
};
inline constexpr std::size_t kEventKinds = static_cast<std::size_t>(EventKind::Unknown) + 1;

/// "moves" and so on, for reports.
[[nodiscard]] std::string_view nameOf(EventKind kind);

/// A word of the grammar.
struct WordRow {
  std::string_view word;
  EventKind kind;
  /// True for a word after which the rest of the line is a text.
  bool hasText = false;
};

/// The words that a reader knows: those of the standard, and others that mean the same as one of
/// them.
class Words {
 public:
  Words();

  /// From now on `word` means what `known` means. False when there is no word `known`, or when
  /// `word` is not one word.
  bool add(std::string_view word, std::string_view known);

  /// The row of a word, or of the one that it means the same as; null for an unknown word.
  [[nodiscard]] const WordRow* find(std::string_view word) const;
  /// The row of the word with a text that a line begins with; null when there is none.
  [[nodiscard]] const WordRow* textWordOf(std::string_view line) const;
  /// What a statement is by itself.
  [[nodiscard]] EventKind kindOf(const Statement& statement) const;

 private:
  /// Words of up to seven bytes, by these bytes; nearly all are.
  struct Slot {
    std::uint64_t bytes = 0;
    const WordRow* row = nullptr;
  };

  void put(std::string_view word, const WordRow* row);
  [[nodiscard]] std::size_t slotOf(std::uint64_t bytes) const;

  /// A power of two; each word is in the first free place from its own on.
  std::vector<Slot> short_;
  std::size_t shorts_ = 0;
  std::map<std::string, const WordRow*, std::less<>> long_;
  /// By a character, whether a word with a text begins with it.
  std::array<bool, 256> beginsText_{};
};

/// The words of the standard.
[[nodiscard]] std::span<const WordRow> standardWords();

/// Follows a text: an arc of the form CIRCLE/ ends with the GOTO after it.
class EventReader {
 public:
  explicit EventReader(const Words& words) : words_(words) {}

  /// What the next statement of the text is.
  [[nodiscard]] EventKind next(const Statement& statement);

 private:
  const Words& words_;
  bool isInArc_ = false;
};

}  // namespace verify
