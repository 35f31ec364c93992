#include <string>
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

}  // namespace

std::vector<CallCount> bareTexts(const ListingReader& listing) {
  std::vector<CallCount> texts;
  if (!listing.vocabulary().bareTexts) return texts;
  for (const CallCount& call : listing.calls().all()) {
    const bool isText = call.name == "COMMENT" || call.name == "MESSAGE";
    if (isText && call.fate == CallFate::Written) texts.push_back(call);
  }
  return texts;
}

std::vector<std::string> summaryLines(const ListingReader& listing) {
  std::vector<std::string> lines;
  if (listing.unit()) lines.push_back("positions in " + std::string(pluralOf(*listing.unit())));
  if (const std::string line = feedUnitLine(listing); !line.empty()) lines.push_back(line);
  if (listing.hasToolAxes()) {
    lines.emplace_back("positions taken as those of the tool's tip in the part's frame");
  }
  if (listing.systems().hasConverted()) {
    lines.emplace_back("positions in the coordinate system of the first move");
  }
  if (const auto systems = listing.systems().merged()) {
    lines.push_back("WARNING: coordinate systems " + std::to_string(systems->first) + " and " +
                    std::to_string(systems->second) + " have the same offsets, so their moves are");
    lines.emplace_back("  written as in one; are these the machine's offsets?");
  }
  long count = 0;
  for (const CallCount& text : bareTexts(listing)) count += text.count;
  if (count > 0) {
    lines.push_back("WARNING: comments written as statements: " + std::to_string(count) +
                    "; use --comments none, or");
    lines.emplace_back(
        "  a table: *START_NC_INSTRUCTION NC_OUTPUT_COMMENT, PPRINT %MFG_OUTPUT_COMMENT");
  }
  return lines;
}

}  // namespace host
