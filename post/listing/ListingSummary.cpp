#include <algorithm>
#include <string_view>

#include "post/listing/ListingReader.h"

namespace host {
namespace {

/// The unit of feed rates if their words name another one than that of the positions.
std::string feedUnitLine(const ListingReader& listing) {
  const auto& unit = listing.vocabulary().feedPerMinute;
  if (!unit || !listing.unit() || unit == listing.unit()) return "";
  return "feed rates in " + std::string(pluralOf(*unit)) + ", as their words say";
}

bool hasTexts(const ListingReader& listing) {
  const auto& calls = listing.calls().all();
  return std::any_of(calls.begin(), calls.end(), [](const CallCount& call) {
    return call.fate == CallFate::Written && (call.name == "COMMENT" || call.name == "MESSAGE");
  });
}

}  // namespace

std::vector<std::string> summaryLines(const ListingReader& listing) {
  std::vector<std::string> lines;
  if (listing.unit()) lines.push_back("positions in " + std::string(pluralOf(*listing.unit())));
  if (const std::string line = feedUnitLine(listing); !line.empty()) lines.push_back(line);
  if (listing.hasToolAxes()) {
    lines.emplace_back("positions taken as those of the tool's tip in the part's frame");
  }
  if (listing.vocabulary().bareTexts && hasTexts(listing)) {
    lines.emplace_back(
        "WARNING: comments are written bare; begin NC_OUTPUT_COMMENT with PPRINT or $$");
  }
  return lines;
}

}  // namespace host
