#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <utility>

#include "System/KEPError.h"
#include "tests/table/TableFiles.h"

namespace {

std::string manual() {
  std::ifstream file(PPWORD_SOURCE_DIR "/docs/table-format.md");
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string between(const std::string& text, const std::string& start, const std::string& end) {
  const std::size_t first = text.find(start);
  if (first == std::string::npos) return "";
  const std::size_t begin = first + start.size();
  return text.substr(begin, text.find(end, begin) - begin);
}

class TableManual : public testing::Test {
 protected:
  Texts syntaxOf(const KEPString& command) {
    KEPListValKEPString syntaxes;
    EXPECT_TRUE(reader_.GetSyntaxOfCommand(command, syntaxes));
    return texts(syntaxes);
  }

  TableFile file_{between(manual(), "```text\n", "```")};
  KEPMfgPPTableTxt reader_{file_.path()};
};

TEST_F(TableManual, ExamplePassesTheCheck) { EXPECT_EQ(reader_.CheckFileSyntax(), S_OK); }

TEST_F(TableManual, ExampleHasItsWords) {
  KEPRawCollint kinds;
  KEPRawCollint codes;
  KEPListValKEPString words;
  EXPECT_TRUE(reader_.GetListOfAptWord(kinds, words));
  EXPECT_TRUE(reader_.GetListOfNcCode(codes));
  EXPECT_EQ(texts(words), (Texts{"FINI", "STOP", "PPRINT", "PARTNO", "FEDRAT", "CYCLE", "GOTO",
                                 "ON", "OFF", "MMPM", "MMPR"}));
  EXPECT_EQ(numbers(kinds), (std::vector{1, 1, 2, 2, 3, 3, 3, 4, 4, 4, 4}));
  EXPECT_EQ(numbers(codes), (std::vector{1, 2, 1044, 1045, 1009, 1054, 5005, 71, 72, 315, 316}));
}

TEST_F(TableManual, ExampleHasItsParametersAndFreeSyntaxes) {
  KEPString format;
  KEPListValKEPString values;
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader_.GetValueOfFormatParameter(1, format));
  EXPECT_TRUE(reader_.GetValuesOfMultiListParameter(1, values));
  EXPECT_TRUE(reader_.GetListOfSyntaxes(syntaxes));
  EXPECT_EQ(format, KEPString("%10.4f"));
  EXPECT_EQ(texts(values), (Texts{"MMPM", "MMPR"}));
  EXPECT_EQ(texts(syntaxes), (Texts{"COOLNT/FLOOD", "COOLNT/OFF"}));
}

TEST_F(TableManual, ExampleHasItsCommands) {
  const std::string point = "GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT";
  const std::string axis = ",%MFG_XAXIS,%MFG_YAXIS,%MFG_ZAXIS";
  EXPECT_EQ(syntaxOf("NC_SAFE_STOP"), (Texts{"COOLNT/OFF", "STOP"}));
  EXPECT_EQ(syntaxOf("NC_CYCLE_ON"), Texts{"CYCLE/ON"});
  EXPECT_EQ(syntaxOf("NC_END_MACRO"),
            (Texts{"PPRINT END OF THE PROGRAM", "COOLNT/OFF", "STOP", "FINI"}));
  EXPECT_EQ(syntaxOf("NC_GOTO"), Texts{point});
  KEPListValKEPString second;
  EXPECT_TRUE(reader_.GetSyntaxOfSequenceForCommand("NC_GOTO", 2, second));
  EXPECT_EQ(texts(second), Texts{point + axis});
  EXPECT_EQ(syntaxOf("NC_DRILLING"),
            (Texts{"CYCLE/DRILL,%MFG_TOTAL_DEPTH,MMPM,%MFG_FEED_MACH,RAPTO,%MFG_CLEAR_TIP,DWELL,"
                   "%MFG_DELAY_VALUE,",
                   "ORIENT"}));
}

// The example in the row of an error must raise just that error.
TEST(TableManualErrors, EveryExampleRaisesItsError) {
  const std::string text = manual();
  for (const char* key : {"ERR_5000", "ERR_5001", "ERR_5002", "ERR_5003", "ERR_5004", "ERR_5005",
                          "ERR_5006", "ERR_5007", "ERR_5008"}) {
    const std::string row = between(text, "\n| " + std::string(key) + " |", "\n");
    const TableFile file(between(row, "`", "`"));
    KEPMfgPPTableTxt reader(file.path());
    KEPError::KEPCleanLastError();
    EXPECT_EQ(reader.CheckFileSyntax(), E_FAIL) << key;
    ASSERT_NE(KEPError::KEPGetLastError(), nullptr) << key;
    EXPECT_EQ(KEPError::KEPGetLastError()->GetMessageKey(), KEPString(key));
  }
}

}  // namespace
