#include "inspect/diagnostics/TableErrorPlace.h"

#include <gtest/gtest.h>

#include <string>

#include "KEPMfgPPTableTxt.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "tests/table/TableFiles.h"

namespace host {
namespace {

// The finding of the reader's check, with the name of the file left out.
std::string checked(std::string_view table) {
  const TableFile file(table);
  KEPError::KEPCleanLastError();
  KEPMfgPPTableTxt reader(file.path());
  if (KEPSucceeded(reader.CheckFileSyntax())) return "passes";
  Diagnostic diagnostic = tableError(std::string(file.path().View()), *KEPError::KEPGetLastError());
  EXPECT_EQ(diagnostic.file, file.path().View());
  diagnostic.file = "T";
  return diagnosticText(diagnostic);
}

TEST(TableError, InsertWithoutNamePointsBehindTheKeyword) {
  EXPECT_EQ(checked("*START_NC_COMMAND NC_A\n*INSERT\n*END\n"),
            "T:2:9: error ERR_5000: *INSERT names no NC instruction; write \"*INSERT NC_NAME\"\n"
            "  *INSERT\n"
            "          ^\n");
}

TEST(TableError, UnknownKeywordSuggestsTheNearest) {
  EXPECT_EQ(checked("*STRAT_LIST MFG_A\n*END\n"),
            "T:1:1: error ERR_5001: a line that begins with \"*\" must be a *START_..., *END or "
            "*INSERT line; did you mean *START_LIST?\n"
            "  *STRAT_LIST MFG_A\n"
            "  ^~~~~~~~~~~\n");
}

TEST(TableError, KeywordLikeNoOtherSuggestsNothing) {
  EXPECT_EQ(checked("*REMARK\n"),
            "T:1:1: error ERR_5001: a line that begins with \"*\" must be a *START_..., *END or "
            "*INSERT line\n"
            "  *REMARK\n"
            "  ^~~~~~~\n");
}

TEST(TableError, SurplusEndIsThePlace) {
  EXPECT_EQ(checked("*START_SYNTAXES\n*END\n*END\nfree text\n"),
            "T:3:1: error ERR_5002: more *END lines than *START lines; remove the *END that closes "
            "nothing (counted to line 4, the end of the table)\n"
            "  *END\n"
            "  ^~~~\n");
}

TEST(TableError, UnclosedStartIsThePlace) {
  EXPECT_EQ(
      checked("*START_SYNTAXES\n*END\n*START_LIST MFG_A\nA,B\n*START_FORMAT MFG_B\n%f\n*END\n"),
      "T:3:1: error ERR_5003: fewer *END lines than *START lines; close every block with "
      "*END (counted to line 7, the end of the table)\n"
      "  *START_LIST MFG_A\n"
      "  ^~~~~~~~~~~\n");
}

TEST(TableError, EarlySurplusEndDoesNotHideTheUnclosedStart) {
  EXPECT_EQ(checked("*END\n*START_SYNTAXES\n*END\n*START_MINOR_WORDS\n*START_SYNTAXES\n"),
            "T:4:1: error ERR_5003: fewer *END lines than *START lines; close every block with "
            "*END (counted to line 5, the end of the table)\n"
            "  *START_MINOR_WORDS\n"
            "  ^~~~~~~~~~~~~~~~~~\n");
}

TEST(TableError, CommandNameWithoutPrefixIsMarked) {
  EXPECT_EQ(checked("*START_NC_COMMAND GOTO now\n*END\n"),
            "T:1:19: error ERR_5004: *START_NC_COMMAND names no command; write "
            "\"*START_NC_COMMAND NC_NAME\"\n"
            "  *START_NC_COMMAND GOTO now\n"
            "                    ^~~~\n");
}

TEST(TableError, TabBeforeTheNameIsExplained) {
  EXPECT_EQ(checked("*START_NC_COMMAND\tNC_GOTO\n*END\n"),
            "T:1:19: error ERR_5004: *START_NC_COMMAND names no command; write "
            "\"*START_NC_COMMAND NC_NAME\"; a blank must precede the name, not a tab\n"
            "  *START_NC_COMMAND NC_GOTO\n"
            "                    ^~~~~~~\n");
}

TEST(TableError, InstructionWithoutNameIsPlaced) {
  EXPECT_EQ(checked("text\r\n*START_NC_INSTRUCTION  \r\n*END\r\n"),
            "T:2:24: error ERR_5005: *START_NC_INSTRUCTION names no instruction; write "
            "\"*START_NC_INSTRUCTION NC_NAME\"\n"
            "  *START_NC_INSTRUCTION  \n"
            "                         ^\n");
}

TEST(TableError, ListWithoutNameIsPlaced) {
  EXPECT_EQ(checked("*START_LIST FEED_UNIT\n*END\n"),
            "T:1:13: error ERR_5006: *START_LIST names no parameter; write "
            "\"*START_LIST MFG_NAME\"\n"
            "  *START_LIST FEED_UNIT\n"
            "              ^~~~~~~~~\n");
}

TEST(TableError, FormatWithoutNameIsPlaced) {
  EXPECT_EQ(checked("*START_FORMAT"),
            "T:1:15: error ERR_5007: *START_FORMAT names no parameter; write "
            "\"*START_FORMAT MFG_NAME\"\n"
            "  *START_FORMAT\n"
            "                ^\n");
}

TEST(TableError, UnknownStartSuggestsTheNearest) {
  EXPECT_EQ(checked("*START_NC_COMAND NC_A\n*END\n"),
            "T:1:1: error ERR_5008: no block begins like this; check the spelling of the *START_ "
            "keyword; did you mean *START_NC_COMMAND?\n"
            "  *START_NC_COMAND NC_A\n"
            "  ^~~~~~~~~~~~~~~~\n");
}

TEST(TableError, AbsentFileHasNoPlace) {
  const TableFile file("");
  file.remove();
  KEPMfgPPTableTxt reader(file.path());
  ASSERT_EQ(reader.CheckFileSyntax(), E_FAIL);
  Diagnostic diagnostic = tableError("T", *KEPError::KEPGetLastError());
  EXPECT_EQ(diagnosticText(diagnostic),
            "T: error ERR_5009: the PP word table cannot be opened: No such file or directory\n");
}

TEST(TableError, LineBehindALongOneKeepsItsPhysicalNumber) {
  const std::string longLine(3000, 'x');
  EXPECT_EQ(checked(longLine + "\n*START_LIST\n*END\n"),
            "T:2:13: error ERR_5006: *START_LIST names no parameter; write "
            "\"*START_LIST MFG_NAME\"\n"
            "  *START_LIST\n"
            "              ^\n");
  EXPECT_EQ(KEPError::KEPGetLastError()->GetNLSParameters().front(), KEPUnicodeString("4"));
}

TEST(TableError, LineOfExactlyOneReadCountsTwiceButKeepsItsPhysicalNumber) {
  EXPECT_EQ(checked(std::string(1023, 'x') + "\n*X\n").substr(0, 4), "T:2:");
  EXPECT_EQ(KEPError::KEPGetLastError()->GetNLSParameters().front(), KEPUnicodeString("3"));
  EXPECT_EQ(checked(std::string(1022, 'x') + "\r\n*X\n").substr(0, 4), "T:2:");
  EXPECT_EQ(KEPError::KEPGetLastError()->GetNLSParameters().front(), KEPUnicodeString("2"));
}

TEST(TableError, KeywordInTheMiddleOfALongLineHasItsColumn) {
  EXPECT_EQ(checked(std::string(1023, 'x') + "*END\n").substr(0, 24), "T:1:1024: error ERR_5002");
}

TEST(TableError, PlaceSurvivesNulBytes) {
  EXPECT_EQ(checked(std::string_view("a\0b\n*START_LIST\0\n*END\n", 21)),
            "T:2:14: error ERR_5006: *START_LIST names no parameter; write "
            "\"*START_LIST MFG_NAME\"\n"
            "  *START_LIST\\x00\n"
            "                  ^\n");
}

}  // namespace
}  // namespace host
