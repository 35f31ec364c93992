#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <variant>

#include "post/toolpath/LineReader.h"
#include "tests/listing/Listings.h"
#include "tests/support/InputFile.h"
#include "tests/support/Mutator.h"

namespace {

const std::string& sample() {
  static const std::string listing = program(
      "SET_G5X_OFFSET(1, 1.5000, 0.0000, 0.0000, 0.0000, 0.0000, 0.0000)\n"
      "COMMENT(\"rough (one) \"level\"\")\n"
      "STRAIGHT_TRAVERSE(0.0000, 0.0000, 60.0000, 0.0000, 0.0000, 0.0000)\n"
      "SET_SPINDLE_MODE(0 0.0000)\n"
      "SET_FEED_RATE(300.0000)\n"
      "STRAIGHT_FEED(-35.0000, 0.2500, 5.0000, 0.0000, -0.0000, 0.0000)\n"
      "ARC_FEED(3.0000, 3.0000, 3.0000, 2.0000, -1, 2.0000, 0.0000, 0.0000, 0.0000)\n"
      "SELECT_TOOL(3)\n"
      "CHANGE_TOOL(1)\n"
      "START_SPINDLE_CLOCKWISE(0)\n"
      "DWELL(1.5000)\n"
      "FLOOD_ON()\n"
      "SET_FEED_MODE(0, 1)\n"
      "USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
      "STRAIGHT_FEED(1.0000, 2.0000, 3.0000, 0.0000, 0.0000, 0.0000)\n"
      "STRAIGHT_TRAVERSE(1.0000, 2.0000, 9.0000, 0.0000, 0.0000, 0.0000)\n");
  return listing;
}

struct Outcome {
  bool refused = false;
  long rapids = 0;
  long gotos = 0;
  long calls = 0;
};

std::vector<std::string> linesOf(std::string_view listing) {
  std::istringstream text{std::string(listing)};
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

Outcome outcomeOf(std::string_view listing) {
  const InputFile file(listing);
  host::ListingReader reader(std::make_unique<host::LineReader>(file.path()), {});
  Outcome outcome;
  const std::vector<std::string> lines = linesOf(listing);
  try {
    for (host::ToolPathEvent event; reader.next(event);) {
      const auto* const element = std::get_if<host::Element>(&event);
      if (element == nullptr) continue;
      outcome.rapids += element->instruction == "NC_RAPID" ? 1 : 0;
      // An arc can be written as straight moves.
      const std::string& line = lines[static_cast<std::size_t>(element->line) - 1];
      const bool isArc = line.find("ARC_FEED(") != std::string::npos;
      outcome.gotos += element->instruction == "NC_GOTO" && !isArc ? 1 : 0;
    }
  } catch (const host::InputError&) {
    outcome.refused = true;
  }
  for (const host::CallCount& call : reader.calls().all()) outcome.calls += call.count;
  return outcome;
}

/// Lines of a text, and those of them whose call is `name`: the plain way, apart from the reader.
long countLines(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }
long countCallsNamed(const std::string& text, std::string_view name) {
  long count = 0;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t block = line.find('N');
    const std::size_t blockEnd = line.find_first_not_of(".0123456789", block + 1);
    const std::size_t start = line.find_first_not_of(' ', blockEnd);
    const std::size_t end = line.find('(');
    if (start < end && std::string_view(line).substr(start, end - start) == name) ++count;
  }
  return count;
}

TEST(ListingMutation, SampleIsReadWhole) {
  const Outcome outcome = outcomeOf(sample());
  EXPECT_FALSE(outcome.refused);
  EXPECT_EQ(outcome.rapids, 2);
  EXPECT_EQ(outcome.gotos, 4);
  EXPECT_EQ(outcome.calls, 18);
}

TEST(ListingMutation, MutatedListingIsRefusedOrEveryLineIsCounted) {
  const unsigned seed = chosenSeed();
  SCOPED_TRACE("repeat with PPWORD_TEST_SEED=" + std::to_string(seed));
  Mutator mutator(seed, "0123456789.,-()\"NEFnaie \n\r");
  int accepted = 0;
  for (int round = 0; round < 1000; ++round) {
    const std::string text = mutator.mutate(sample());
    const Outcome outcome = outcomeOf(text);
    if (outcome.refused) continue;
    ++accepted;
    const long traverses = countCallsNamed(text, "STRAIGHT_TRAVERSE");
    const long feeds = countCallsNamed(text, "STRAIGHT_FEED");
    const long openLine = text.ends_with('\n') ? 0 : 1;
    ASSERT_EQ(outcome.rapids, traverses) << text;
    ASSERT_EQ(outcome.gotos, traverses + feeds) << text;
    ASSERT_EQ(outcome.calls, countLines(text) + openLine) << text;
  }
  EXPECT_GT(accepted, 0);
}

TEST(ListingMutation, ListingCutAnywhereIsRefused) {
  // The last call needs no line feed.
  const std::size_t whole = sample().size() - 1;
  for (std::size_t length = 0; length < whole; ++length) {
    ASSERT_TRUE(outcomeOf(std::string_view(sample()).substr(0, length)).refused) << length;
  }
  EXPECT_FALSE(outcomeOf(std::string_view(sample()).substr(0, whole)).refused);
}

TEST(ListingMutation, ListingWithoutOneOfItsLinesIsRefused) {
  std::size_t begin = 0;
  while (begin < sample().size()) {
    const std::size_t end = sample().find('\n', begin) + 1;
    std::string text = sample();
    text.erase(begin, end - begin);
    ASSERT_TRUE(outcomeOf(text).refused) << "without the bytes " << begin << " to " << end;
    begin = end;
  }
}

}  // namespace
