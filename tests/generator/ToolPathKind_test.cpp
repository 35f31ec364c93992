#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "post/toolpath/LineReader.h"
#include "post/toolpath/ToolPath.h"
#include "tests/support/InputFile.h"

namespace {

using namespace std::string_view_literals;

/// "job", "listing", "program", or "LINE:COLUMN: " and the message.
std::string kindOf(std::string_view text) {
  const InputFile file(text);
  host::LineReader lines(file.path());
  try {
    constexpr const char* kNames[] = {"job", "listing", "program"};
    return kNames[static_cast<int>(host::recogniseToolPath(lines))];
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
      "0:0: the input is empty; a job (JSON Lines), a canonical listing or an NC program is "
      "expected";
  EXPECT_EQ(kindOf(""), kMessage);
  EXPECT_EQ(kindOf(" \n\n"), kMessage);
}

TEST(ToolPathKind, OtherInputIsNeither) {
  constexpr std::string_view kMessage =
      "1:1: neither a job (JSON Lines, begins with '{') nor a canonical listing (begins with "
      "'    1 N.....') nor an NC program (has words such as G1 in its first lines)";
  for (const std::string_view text :
       {"%\n"sv, "(G1 X1)\n"sv, "; G1\n"sv, "X1 Y2\n"sv, "GOTO/1,2,3\n"sv, "12,G1\n"sv,
        "PPRINT M6\n"sv, "1N..... ON_RESET()\n"sv, "12"sv, "#<g1> = 2\n"sv, "o100 if [#1 ge 5]\n"sv,
        "[1]\n"sv, "G1 X1\n\0\n"sv, "*START_SYNTAXES\nG1 X1\n*END\n"sv, "\0\0\0\0"sv,
        "PK\x03\x04"sv}) {
    EXPECT_EQ(kindOf(text), kMessage) << text;
  }
}

TEST(ToolPathKind, ProgramHasWordsInItsFirstLines) {
  for (const std::string_view text :
       {"G21 G90\n"sv, "%\nO0001\nG21\n"sv, "N10 G0 X1\n"sv, "g 1 x1"sv, "(a)\n\n  /n10m6t3\r\n"sv,
        "#1=5 G1 X#1\n"sv, "10 G0\n"sv, "G[50+3]\nX[1]G0\n"sv, "\xEF\xBB\xBFG21\nG0\n"sv}) {
    EXPECT_EQ(kindOf(text), "program") << text;
  }
  EXPECT_EQ(kindOf(std::string(8200, '\n') + "G1\n").substr(0, 4), "1:1:");
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
