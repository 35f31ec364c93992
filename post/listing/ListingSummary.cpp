#include <algorithm>
#include <string_view>

#include "post/listing/ListingReader.h"

namespace host {
namespace {

struct Paragraph {
  CallFate fate;
  std::string_view opening;
};

constexpr Paragraph kParagraphs[] = {
    {CallFate::Move, "moves: "},
    {CallFate::Written, "written as lines: "},
    {CallFate::Other, "no output needed: "},
    {CallFate::Dropped, "WARNING: calls only partly written: "},
    {CallFate::Unknown, "WARNING: unknown calls, missing from the output: "},
    {CallFate::UnsupportedMove, "WARNING: moves missing from the output: "},
};

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
  for (const auto& [fate, opening] : kParagraphs) {
    const std::string calls = listing.calls().describe(fate);
    if (!calls.empty()) lines.push_back(std::string(opening) + calls);
  }
  if (listing.vocabulary().bareTexts && hasTexts(listing)) {
    lines.emplace_back(
        "WARNING: comments and messages are written as they are; the NC_OUTPUT_COMMENT of a "
        "table can put PPRINT or $$ before them");
  }
  return lines;
}

}  // namespace host
