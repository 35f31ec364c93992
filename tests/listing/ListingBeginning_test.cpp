// The start of a listing's text: the macro of the table and the unit; and which texts become lines.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "post/toolpath/LineReader.h"
#include "tests/listing/Listings.h"
#include "tests/support/InputFile.h"

namespace {

constexpr std::string_view kFirstMove = "STRAIGHT_FEED(1.0, 2.0, 3.0, 0.0, 0.0, 0.0)\n";
constexpr std::string_view kInches = "USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n";

/// The instructions of a listing, each after the unit that its activity states, such as
/// "MM:NC_GOTO".
std::string unitsOf(std::string_view calls, const host::ListingOptions& options) {
  const InputFile file(program(calls));
  host::ListingReader reader(std::make_unique<host::LineReader>(file.path()), options);
  std::string unit;
  std::string text;
  for (host::ToolPathEvent event; reader.next(event);) {
    if (const auto* const activity = std::get_if<host::ActivityStart>(&event)) {
      unit.clear();
      for (const auto& [name, value] : activity->parameters) {
        if (name == "MFG_UNIT") unit = value.text.View();
      }
    } else {
      text += (text.empty() ? "" : " ") + unit + ':' + std::get<host::Element>(event).instruction;
    }
  }
  return text;
}

host::ListingOptions withMacro() {
  host::ListingOptions options;
  options.vocabulary.startMacro = true;
  return options;
}

TEST(ListingBeginning, StartMacroComesFirstWithTheUnitOfTheFirstMove) {
  const std::string calls = "COMMENT(\"A\")\n" + std::string(kInches) + std::string(kFirstMove);
  EXPECT_EQ(unitsOf(calls, withMacro()),
            "INCHES:NC_START_MACRO INCHES:NC_OUTPUT_COMMENT INCHES:NC_GOTO");
  EXPECT_EQ(unitsOf(kFirstMove, withMacro()), "MM:NC_START_MACRO MM:NC_GOTO");
  host::ListingOptions chosen = withMacro();
  chosen.unit = host::LengthUnit::Inch;
  EXPECT_EQ(unitsOf(kFirstMove, chosen), "INCHES:NC_START_MACRO INCHES:NC_GOTO");
}

TEST(ListingBeginning, ListingWithoutMovesHasTheMacroToo) {
  EXPECT_EQ(unitsOf("", withMacro()), "MM:NC_START_MACRO");
  EXPECT_EQ(unitsOf(kInches, withMacro()), "INCHES:NC_START_MACRO");
}

TEST(ListingBeginning, UnitIsKnownFromTheFirstMoveUnlessItIsAskedFor) {
  const std::string calls = "COMMENT(\"A\")\n" + std::string(kInches) + std::string(kFirstMove);
  EXPECT_EQ(unitsOf(calls, {}), ":NC_OUTPUT_COMMENT INCHES:NC_GOTO");
  host::ListingOptions asked;
  asked.vocabulary.unit = true;
  EXPECT_EQ(unitsOf(calls, asked), "INCHES:NC_OUTPUT_COMMENT INCHES:NC_GOTO");
}

TEST(ListingBeginning, UnitStaysThatOfTheText) {
  EXPECT_EQ(unitsOf(std::string(kFirstMove) + std::string(kInches) + "DWELL(1.0)\n" +
                        std::string(kFirstMove),
                    withMacro()),
            "MM:NC_START_MACRO MM:NC_GOTO MM:NC_DELAY MM:NC_GOTO");
}

TEST(ListingBeginning, LongBeginningIsNotHeld) {
  std::string calls;
  for (int i = 0; i < 10'100; ++i) calls += "COMMENT(\"A\")\n";
  const std::string units = unitsOf(calls + std::string(kFirstMove), withMacro());
  EXPECT_TRUE(units.starts_with("MM:NC_START_MACRO MM:NC_OUTPUT_COMMENT ")) << units.substr(0, 80);
  EXPECT_TRUE(units.ends_with(" MM:NC_OUTPUT_COMMENT MM:NC_GOTO"));
  // The start of the text would state the wrong unit.
  const std::string read =
      readListing(program(calls + std::string(kInches) + std::string(kFirstMove)), withMacro());
  EXPECT_TRUE(read.ends_with(
      "NC_OUTPUT_COMMENT <A>\n10103:14: the unit of the first move comes too late for the start of "
      "the text, which states another one; name it with --units mm or --units inch\n"))
      << read.substr(read.size() - 200);
}

TEST(ListingBeginning, StartMacroIsOfTheFirstLine) {
  const InputFile file(program(kFirstMove));
  host::ListingReader reader(std::make_unique<host::LineReader>(file.path()), withMacro());
  host::ToolPathEvent event;
  ASSERT_TRUE(reader.next(event));
  ASSERT_TRUE(reader.next(event));
  EXPECT_EQ(std::get<host::Element>(event).instruction, "NC_START_MACRO");
  EXPECT_EQ(std::get<host::Element>(event).line, 1);
}

TEST(ListingTexts, InterpretersOwnAreLeftOut) {
  const std::string calls =
      "COMMENT(\"up\")\nCOMMENT(\"interpreter: feed mode set\")\nMESSAGE(\"down\")\n"
      "COMMENT(\"interpreter:none\")\n";
  const auto read = [&](host::ListedTexts texts) {
    host::ListingOptions options;
    options.texts = texts;
    return readListing(program(calls), options);
  };
  EXPECT_EQ(readListing(program(calls)), read(host::ListedTexts::Program));
  EXPECT_EQ(read(host::ListedTexts::Program),
            "NC_OUTPUT_COMMENT <up>\nNC_OUTPUT_COMMENT <down>\n"
            "NC_OUTPUT_COMMENT <interpreter:none>\n");
  EXPECT_EQ(read(host::ListedTexts::All),
            "NC_OUTPUT_COMMENT <up>\nNC_OUTPUT_COMMENT <interpreter: feed mode set>\n"
            "NC_OUTPUT_COMMENT <down>\nNC_OUTPUT_COMMENT <interpreter:none>\n");
  EXPECT_EQ(read(host::ListedTexts::None), "");
  host::ListingOptions none;
  none.texts = host::ListedTexts::None;
  EXPECT_EQ(countCalls(program("COMMENT(\"up\")\n"), none),
            "other USE_LENGTH_UNITS 1 from 1\nother COMMENT 1 from 2\nother FINISH 1 from 3\n");
}

}  // namespace
