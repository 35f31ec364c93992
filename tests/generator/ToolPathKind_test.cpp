#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "post/toolpath/LineReader.h"
#include "post/toolpath/ToolPath.h"
#include "tests/support/InputFile.h"

namespace {

using namespace std::string_view_literals;

/// "job", "listing", or "LINE:COLUMN: " and the message.
std::string kindOf(std::string_view text) {
  const InputFile file(text);
  host::LineReader lines(file.path());
  try {
    return host::recogniseToolPath(lines) == host::ToolPathKind::Job ? "job" : "listing";
  } catch (const host::InputError& error) {
    return std::to_string(error.line()) + ':' + std::to_string(error.column()) + ": " +
           error.message();
  }
}

TEST(ToolPathKind, JobBeginsWithABrace) {
  EXPECT_EQ(kindOf("{"), "job");
  EXPECT_EQ(kindOf("{\"job\":1}\n"), "job");
  EXPECT_EQ(kindOf("\r\n  \t{\"job\":1}\n"), "job");
  EXPECT_EQ(kindOf("\xEF\xBB\xBF{\"job\":1}\n"), "job");
}

TEST(ToolPathKind, ListingBeginsWithTwoNumbers) {
  EXPECT_EQ(kindOf("    1 N..... USE_LENGTH_UNITS(CANON_UNITS_MM)\n"), "listing");
  EXPECT_EQ(kindOf("1 N10 COMMENT(\"{\")"), "listing");
}

TEST(ToolPathKind, EmptyInputIsNeither) {
  constexpr std::string_view kMessage =
      "0:0: the input is empty; a job (JSON Lines) or a canonical listing is expected";
  EXPECT_EQ(kindOf(""), kMessage);
  EXPECT_EQ(kindOf(" \n\n"), kMessage);
}

TEST(ToolPathKind, OtherInputIsNeither) {
  constexpr std::string_view kMessage =
      "1:1: neither a job (JSON Lines, begins with '{') nor a canonical listing (begins with "
      "'    1 N.....'); to create the listing of an NC program, use: rs274 -g PROGRAM LISTING";
  for (const std::string_view text :
       {"G21 G90\n"sv, "%\n"sv, "N10 G0 X1\n"sv, "10 G0\n"sv, "1N..... ON_RESET()\n"sv, "12"sv,
        "[1]\n"sv, "\xEF\xBB\xBFG0\n"sv, "\0\0\0\0"sv, "PK\x03\x04"sv}) {
    EXPECT_EQ(kindOf(text), kMessage) << text;
  }
}

TEST(ToolPathKind, NothingIsTaken) {
  const InputFile file("{\"job\":1}\n");
  host::LineReader lines(file.path());
  EXPECT_EQ(host::recogniseToolPath(lines), host::ToolPathKind::Job);
  std::string_view line;
  ASSERT_TRUE(lines.next(line));
  EXPECT_EQ(line, "{\"job\":1}");
}

}  // namespace
