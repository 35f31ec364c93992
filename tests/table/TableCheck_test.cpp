#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Manufacturing/KEPMfgInternalError.h"
#include "tests/table/TableFiles.h"

namespace {

// The last error in one line: catalogue, key, type and parameters.
std::string lastError() {
  const auto* const error = dynamic_cast<const KEPMfgInternalError*>(KEPError::KEPGetLastError());
  if (error == nullptr) return "";
  std::string text = error->GetCatalogue().CastToCharPtr();
  text.append(" ").append(error->GetMessageKey().View());
  text += " " + std::to_string(error->GetInformationOnErrorType());
  for (const KEPUnicodeString& parameter : error->GetNLSParameters()) {
    text.append(" ").append(parameter.View());
  }
  return text;
}

// The error that the check of a table raises; "" when it passes.
std::string faultOf(std::string_view table) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  KEPError::KEPCleanLastError();
  const HRESULT status = reader.CheckFileSyntax();
  EXPECT_EQ(status, lastError().empty() ? S_OK : E_FAIL);
  return lastError();
}

std::string faultOfStartLine(std::string_view line, int number) {
  KEPMfgPPTableTxt reader("/nowhere");
  KEPError::KEPCleanLastError();
  const HRESULT status = KEPMfgPPTableTxtTest(reader).checkStartLine(line, number);
  EXPECT_EQ(status, lastError().empty() ? S_OK : E_FAIL);
  return lastError();
}

struct CheckCase {
  std::string table;
  std::string error;
};

TEST(TableCheck, SoundTablePasses) {
  const Texts tables = {
      "",
      "\n",
      "no keyword line\n at all",
      "*START_MAJOR_WORDS_WITHOUT_PARAMETERS\n*END\n",
      "*START_MAJOR_WORDS_WITH_TEXT\n*END\n",
      "*START_MAJOR_WORDS_WITH_PARAMETERS\n*END\n",
      "*START_MINOR_WORDS\n*END\n",
      "*START_SYNTAXES\n*END\n",
      "*START_SEQUENCE\n*END\n",
      "*START_NC_COMMAND NC_A\n*END\n",
      "*START_NC_INSTRUCTION NC_A\n*END\n",
      "*START_LIST MFG_A\n*END\n",
      "*START_FORMAT MFG_A\n*END\n",
      "*INSERT NC_A\n",
      "*START_NC_COMMAND NC_A\n*END",
      "*START_NC_COMMAND NC_A\r\n*END\r\n",
  };
  for (const std::string& table : tables) EXPECT_EQ(faultOf(table), "") << table;
}

TEST(TableCheck, EachFaultRaisesItsErrorWithItsLine) {
  const std::vector<CheckCase> cases = {
      {"A\n*INSERT\n", "ManufacturingError ERR_5000 2 2"},
      {"*INSERT ALSO_NC_A\n", "ManufacturingError ERR_5000 2 1"},
      {"*INSERT\tNC_A\n", "ManufacturingError ERR_5000 2 1"},
      {"*\n", "ManufacturingError ERR_5001 2 1"},
      {"A\nB\n*COMMENT\n", "ManufacturingError ERR_5001 2 3"},
      {"*start_syntaxes\n", "ManufacturingError ERR_5001 2 1"},
      {"*START_SYNTAXES\n*END\n*END\nlast\n", "ManufacturingError ERR_5002 2 4"},
      {"*END", "ManufacturingError ERR_5002 2 1"},
      {"*START_SYNTAXES\n*START_SYNTAXES\n*END\n", "ManufacturingError ERR_5003 2 3"},
      {"*START_NC_COMMAND\n", "ManufacturingError ERR_5004 2 1"},
      {"\n*START_NC_COMMAND MY_A\n", "ManufacturingError ERR_5004 2 2"},
      {"*START_NC_INSTRUCTION MY_A\n", "ManufacturingError ERR_5005 2 1"},
      {"*START_LIST\n", "ManufacturingError ERR_5006 2 1"},
      {"*START_FORMAT X_AXIS\n", "ManufacturingError ERR_5007 2 1"},
      {"*START\n", "ManufacturingError ERR_5008 2 1"},
      {"*START_SYNTAX\n", "ManufacturingError ERR_5008 2 1"},
      {"*START_MAJOR_WORDS\n", "ManufacturingError ERR_5008 2 1"},
  };
  for (const auto& [table, error] : cases) EXPECT_EQ(faultOf(table), error) << table;
}

TEST(TableCheck, AbsentFileRaisesItsErrorWithoutParameter) {
  KEPMfgPPTableTxt reader("/nowhere/table.txt");
  EXPECT_EQ(reader.CheckFileSyntax(), E_FAIL);
  EXPECT_EQ(lastError(), "ManufacturingError ERR_5009 2");
}

TEST(TableCheck, DirectoryRaisesTheErrorOfAnAbsentFile) {
  KEPMfgPPTableTxt reader("/");
  EXPECT_EQ(reader.CheckFileSyntax(), E_FAIL);
  EXPECT_EQ(lastError(), "ManufacturingError ERR_5009 2");
}

TEST(TableCheck, FirstFaultCounts) {
  EXPECT_EQ(faultOf("*START_LIST\n*COMMENT\n*END\n*END\n"), "ManufacturingError ERR_5006 2 1");
}

TEST(TableCheck, OnlyTheTotalsOfStartsAndEndsAreCompared) {
  EXPECT_EQ(faultOf("*END\n*START_SYNTAXES\n"), "");
}

TEST(TableCheck, LineThatBeginsWithABlankIsNotChecked) {
  EXPECT_EQ(faultOf(" *START_SYNTAXES\n\t*NOTHING\n"), "");
}

TEST(TableCheck, ByteOrderMarkHidesTheFirstLine) {
  EXPECT_EQ(faultOf("\xEF\xBB\xBF*START_SYNTAXES\n*END\n"), "ManufacturingError ERR_5002 2 2");
}

TEST(TableCheck, KeywordsAreFoundInsideTheLine) {
  EXPECT_EQ(faultOf("*ENDX\n*START_LISTING MFG_A\n"), "");
  EXPECT_EQ(faultOf("*X*START_SYNTAXES\n*X*END\n*X*INSERT, NC_A\n"), "");
}

TEST(TableCheck, LineWithStartAndEndCountsAsStart) {
  EXPECT_EQ(faultOf("*END *START_SYNTAXES\n"), "ManufacturingError ERR_5003 2 1");
}

TEST(TableCheck, LineWithEndAndInsertCountsAsEnd) {
  EXPECT_EQ(faultOf("*INSERT *END\n"), "ManufacturingError ERR_5002 2 1");
}

TEST(TableCheck, LineOf1023CharactersIsOneLine) {
  // The line feed is one of the characters of a line.
  const std::string fits = "x" + std::string(1021, ' ');
  EXPECT_EQ(faultOf(fits + "\n*COMMENT\n"), "ManufacturingError ERR_5001 2 2");
  EXPECT_EQ(faultOf(fits + "\r\n*COMMENT\r\n"), "ManufacturingError ERR_5001 2 2");
}

TEST(TableCheck, LongerLineIsCountedAsSeveral) {
  const std::string longer = "x" + std::string(1022, ' ');
  EXPECT_EQ(faultOf(longer + "\n*COMMENT\n"), "ManufacturingError ERR_5001 2 3");
  EXPECT_EQ(faultOf(longer + "\r\n*COMMENT\r\n"), "ManufacturingError ERR_5001 2 3");
  EXPECT_EQ(faultOf(std::string(2 * 1023 + 1, 'x') + "\n*COMMENT\n"),
            "ManufacturingError ERR_5001 2 4");
}

TEST(TableCheck, PartOfALongLineThatBeginsWithAStarIsChecked) {
  EXPECT_EQ(faultOf(std::string(1023, 'x') + "*COMMENT\n"), "ManufacturingError ERR_5001 2 2");
  EXPECT_EQ(faultOf(std::string(1022, 'x') + "*COMMENT\n"), "");
}

TEST(TableCheck, LoneCarriageReturnEndsNoLine) {
  EXPECT_EQ(faultOf("A\r*COMMENT\n*COMMENT\n"), "ManufacturingError ERR_5001 2 2");
  EXPECT_EQ(faultOf("\r\r\n\r*COMMENT\r"), "");
}

TEST(TableCheck, NulByteIsAnOrdinaryCharacter) {
  using namespace std::string_literals;
  EXPECT_EQ(faultOf("*\0START_SYNTAXES\n"s), "ManufacturingError ERR_5001 2 1");
  EXPECT_EQ(faultOf("*\0 *START_SYNTAXES\n*END\0\n\0*COMMENT\n"s), "");
}

TEST(TableCheck, StreamStaysWhereTheCheckStopped) {
  const TableFile file("*START_SYNTAXES FIRST\n*COMMENT SECOND\nTHIRD\n");
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(reader.CheckFileSyntax(), E_FAIL);
  EXPECT_EQ(KEPMfgPPTableTxtTest(reader).nextToken(), "THIRD");
}

TEST(TableCheck, PassedCheckLeavesTheLastErrorAlone) {
  const TableFile bad("*COMMENT\n");
  const TableFile good("");
  KEPMfgPPTableTxt badReader(bad.path());
  KEPMfgPPTableTxt goodReader(good.path());
  EXPECT_EQ(badReader.CheckFileSyntax(), E_FAIL);
  EXPECT_EQ(goodReader.CheckFileSyntax(), S_OK);
  EXPECT_EQ(lastError(), "ManufacturingError ERR_5001 2 1");
}

TEST(TableCheck, StartLineGivesItsErrorWithTheGivenNumber) {
  const std::vector<CheckCase> cases = {
      {"*START_MAJOR_WORDS_WITHOUT_PARAMETERS", ""},
      {"*START_MAJOR_WORDS_WITH_TEXT", ""},
      {"*START_MAJOR_WORDS_WITH_PARAMETERS", ""},
      {"*START_MINOR_WORDS", ""},
      {"*START_SYNTAXES", ""},
      {"*START_SEQUENCE", ""},
      {"*START_NC_COMMAND NC_A", ""},
      {"*START_NC_INSTRUCTION NC_A", ""},
      {"*START_LIST MFG_A", ""},
      {"*START_FORMAT MFG_A", ""},
      {"*START_NC_COMMAND MFG_A", "ManufacturingError ERR_5004 2 12"},
      {"*START_NC_INSTRUCTION", "ManufacturingError ERR_5005 2 12"},
      {"*START_LIST NC_A", "ManufacturingError ERR_5006 2 12"},
      {"*START_FORMAT", "ManufacturingError ERR_5007 2 12"},
      {"*START_NOTHING", "ManufacturingError ERR_5008 2 12"},
  };
  for (const auto& [line, error] : cases) EXPECT_EQ(faultOfStartLine(line, 12), error) << line;
}

TEST(TableCheck, StartLineTriesItsKeywordsInOrder) {
  const std::vector<CheckCase> cases = {
      {"*START_LIST *START_SEQUENCE", ""},
      {"*START_LIST START_NC_COMMAND MFG_A", "ManufacturingError ERR_5004 2 1"},
      {"*START_LIST START_NC_INSTRUCTION MFG_A", "ManufacturingError ERR_5005 2 1"},
      {"*START_NC_INSTRUCTION START_NC_COMMAND", "ManufacturingError ERR_5004 2 1"},
      {"*START_FORMAT START_LIST", "ManufacturingError ERR_5006 2 1"},
      {"*START RESTART_FORMAT MFG_A", ""},
      {"*START MINOR_WORDS", "ManufacturingError ERR_5008 2 1"},
  };
  for (const auto& [line, error] : cases) EXPECT_EQ(faultOfStartLine(line, 1), error) << line;
}

}  // namespace
