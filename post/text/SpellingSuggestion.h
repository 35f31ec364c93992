#pragma once

#include <span>
#include <string_view>

namespace host {

/// The candidate that a misspelt word most likely means: the one with the fewest letters to insert,
/// delete, replace or swap, ignoring case, the first of equals. Empty if none is near. A word that
/// lacks its "NC_" or "MFG_" means the candidate with it.
[[nodiscard]] std::string_view nearest(std::string_view word,
                                       std::span<const std::string_view> candidates);

}  // namespace host
