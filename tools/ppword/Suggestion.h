#pragma once

#include <span>
#include <string>
#include <string_view>

#include "post/text/SpellingSuggestion.h"

/// What to add to a message about a word that nobody knows: the candidate that was perhaps meant.
[[nodiscard]] inline std::string suggestion(std::string_view word,
                                            std::span<const std::string_view> candidates) {
  const std::string_view meant = host::nearest(word, candidates);
  return meant.empty() ? "" : "; did you mean '" + std::string(meant) + "'?";
}
