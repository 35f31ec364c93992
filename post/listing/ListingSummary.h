#pragma once

#include <string>
#include <vector>

namespace host {

class ListingReader;

/// What a listing gave, for people, one line each without its end: the moves and their unit, what
/// was taken for granted about rotary axes, calls that wait for lines of their own, calls without a
/// line, and last what the text lacks.
[[nodiscard]] std::vector<std::string> summaryLines(const ListingReader& listing);

}  // namespace host
