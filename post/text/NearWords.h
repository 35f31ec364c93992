#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace host {

/// Words, of which those are found that are one mistake away from another one: a letter left out,
/// put in or replaced, two neighbours swapped, or letters of the other case. Every word is listed
/// under what is left of it without each of its letters, as two words that are one mistake apart
/// have one of these in common; so a search does not depend on how many words there are.
class NearWords {
 public:
  NearWords() = default;
  /// The words are valid as long as the object.
  explicit NearWords(std::vector<std::string_view> words);

  /// The first word that is one mistake away from `word` and that `isMeant` accepts; empty when
  /// there is none.
  [[nodiscard]] std::string_view near(std::string_view word,
                                      const std::function<bool(std::string_view)>& isMeant) const;

 private:
  struct Entry {
    std::uint32_t hash;
    std::uint32_t index;
  };

  std::vector<std::string_view> words_;
  /// In order.
  std::vector<Entry> entries_;
};

/// A word without the number at its end: words that differ in it only are different on purpose.
[[nodiscard]] std::string_view withoutNumber(std::string_view word);

/// True when two words are one mistake apart.
[[nodiscard]] bool isOneMistake(std::string_view left, std::string_view right);

}  // namespace host
