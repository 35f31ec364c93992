#include "host/generator/ListingSummary.h"

#include <string_view>

#include "host/generator/ListingReader.h"

namespace host {
namespace {

struct Paragraph {
  CallFate fate;
  std::string_view opening;
};

constexpr Paragraph kParagraphs[] = {
    {CallFate::Move, "straight moves: "},
    {CallFate::Waiting, "read, without a line yet: "},
    {CallFate::Other, "without a line: "},
    {CallFate::Unknown, "WARNING: calls of unknown meaning, which the text lacks: "},
    {CallFate::LostMove, "WARNING: moves that the text LACKS: "},
};

}  // namespace

std::vector<std::string> summaryLines(const ListingReader& listing) {
  std::vector<std::string> lines;
  if (listing.unit()) lines.push_back("positions in " + std::string(pluralOf(*listing.unit())));
  if (listing.givesToolAxes()) {
    lines.emplace_back("positions taken as those of the tool's tip in the part's frame");
  }
  for (const auto& [fate, opening] : kParagraphs) {
    const std::string calls = listing.calls().describe(fate);
    if (!calls.empty()) lines.push_back(std::string(opening) + calls);
  }
  return lines;
}

}  // namespace host
