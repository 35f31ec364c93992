#include "inspect/diagnostics/TableWarnings.h"

#include <gtest/gtest.h>

#include <string>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/TableFile.h"
#include "tests/table/TableFiles.h"

namespace host {
namespace {

std::string warnings(std::string_view table) {
  const TableFile file(table);
  std::string text;
  for (Diagnostic& warning : tableWarnings(std::string(file.path().View()))) {
    warning.file = "T";
    text += diagnosticText(warning);
  }
  return text;
}

TEST(TableWarnings, FormatWithABlankIsToldAsOneWord) {
  const TableFile file("*START_FORMAT MFG_XPOINT\n% .4f\n*END\n");
  const auto warnings = tableWarnings(std::string(file.path().View()));
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].column, 3);
  EXPECT_EQ(warnings[0].message,
            "no number can be printed with the format of MFG_XPOINT; a format is one word: leave "
            "out the blanks");
}

TEST(TableWarnings, OrdinaryTableGivesNone) {
  EXPECT_EQ(warnings("*START_FORMAT MFG_XPOINT\n%11.5f\n*END\n"
                     "*START_NC_COMMAND NC_A\nA\n*END\n"
                     "*START_NC_COMMAND NC_B\n*INSERT NC_A\n*INSERT NC_A\n*END\n"),
            "");
}

TEST(TableWarnings, EmptyFileHasNoSection) {
  EXPECT_EQ(warnings(""), "T: warning no-section: the table has no block, so it changes nothing\n");
}

TEST(TableWarnings, LongWordOfATextEndsTheTableToo) {
  const auto columns = [](std::size_t length, const std::string& word = "PPRINT ") {
    const TableFile file("*START_NC_COMMAND NC_A\n" + word + std::string(length, 'x') +
                         " y\n*END\n*START_NC_COMMAND NC_GOTO\nGO/1\n*END\n");
    std::string text;
    for (const Diagnostic& warning : tableWarnings(std::string(file.path().View()))) {
      text +=
          std::to_string(warning.line) + ':' + std::to_string(warning.column) + ' ' + warning.key;
    }
    return text;
  };
  EXPECT_EQ(columns(1023), "");
  EXPECT_EQ(columns(1024), "2:8 long-token");
  EXPECT_EQ(columns(1024, "$$ short words and "), "2:20 long-token");
}

TEST(TableWarnings, KeywordBehindASlashIsNoSection) {
  EXPECT_EQ(warnings("/*START_SYNTAXES\n*END\n"),
            "T: warning no-section: the table has no block, so it changes nothing\n");
}

TEST(TableWarnings, WordOf1023CharactersIsShortEnough) {
  EXPECT_EQ(warnings("*START_SYNTAXES\n" + std::string(1023, 'x') + "\n*END\n"), "");
}

TEST(TableWarnings, WordOf1024CharactersIsTooLong) {
  EXPECT_EQ(warnings("*START_SYNTAXES\n " + std::string(1024, 'x') + "\n*END\n"),
            "T:2:2: warning long-token: a word of 1024 characters; words of more than 1023 cannot "
            "be read, nor can what follows\n"
            "   " +
                std::string(95, 'x') +
                "...\n"
                "   ^" +
                std::string(94, '~') + "\n");
}

TEST(TableWarnings, CommandThatInsertsItselfIsEndless) {
  EXPECT_EQ(warnings("*START_NC_COMMAND NC_A\nX\n  *INSERT NC_A\n*END\n"),
            "T:3:3: warning endless-insert: the inserts of NC_A never end, so its lines cannot be "
            "read\n"
            "    *INSERT NC_A\n"
            "    ^~~~~~~~~~~~\n");
}

TEST(TableWarnings, EveryCommandThatLeadsToARingIsNamed) {
  EXPECT_EQ(warnings("*START_NC_COMMAND NC_A\n*INSERT NC_B\n*END\n"
                     "*START_NC_COMMAND NC_B\n*INSERT NC_C\n*END\n"
                     "*START_NC_COMMAND NC_C\n*INSERT NC_B\n*END\n"
                     "*START_NC_COMMAND NC_D\nX\n*END\n"),
            "T:2:1: warning endless-insert: the inserts of NC_A never end, so its lines cannot be "
            "read\n"
            "  *INSERT NC_B\n"
            "  ^~~~~~~~~~~~\n"
            "T:5:1: warning endless-insert: the inserts of NC_B never end, so its lines cannot be "
            "read\n"
            "  *INSERT NC_C\n"
            "  ^~~~~~~~~~~~\n"
            "T:8:1: warning endless-insert: the inserts of NC_C never end, so its lines cannot be "
            "read\n"
            "  *INSERT NC_B\n"
            "  ^~~~~~~~~~~~\n");
}

TEST(TableWarnings, InsertInALaterSequenceIsNoPartOfTheBody) {
  EXPECT_EQ(warnings("*START_NC_COMMAND NC_A\n*START_SEQUENCE\nX\n*END\n"
                     "*START_SEQUENCE\n*INSERT NC_A\n*END\n*END\n"),
            "");
}

TEST(TableWarnings, InsertBehindATextWordIsText) {
  EXPECT_EQ(warnings("*START_NC_COMMAND NC_A\nPPRINT *INSERT NC_A\nPARTNO *INSERT NC_A\n*END\n"),
            "");
}

TEST(TableWarnings, InsertInANestedListIsPassedOver) {
  EXPECT_EQ(warnings("*START_NC_COMMAND NC_A\n*START_LIST MFG_A\n*INSERT NC_A\n*END\n*END\n"), "");
}

TEST(TableWarnings, InsertMeansACommandBeforeAnInstruction) {
  EXPECT_EQ(warnings("*START_NC_INSTRUCTION NC_A\n*INSERT NC_A\n*END\n"
                     "*START_NC_COMMAND NC_A\nX\n*END\n"),
            "");
}

TEST(TableWarnings, InsertOfAnUnknownCommandEnds) {
  EXPECT_EQ(warnings("*START_NC_COMMAND NC_A\n*INSERT NC_ABSENT\n*END\n"), "");
}

TEST(TableWarnings, DoublingInsertsGiveTooManyLines) {
  std::string table = "*START_NC_COMMAND NC_0\nX\n*END\n";
  for (int i = 1; i <= 17; ++i) {
    const std::string inserted = "*INSERT NC_" + std::to_string(i - 1) + "\n";
    table += "*START_NC_COMMAND NC_" + std::to_string(i) + "\n";
    table.append(inserted).append(inserted).append("*END\n");
  }
  EXPECT_EQ(warnings(table),
            "T:69:1: warning endless-insert: the inserts of NC_17 make more than 100000 lines and "
            "cannot be read\n"
            "  *INSERT NC_16\n"
            "  ^~~~~~~~~~~~~\n");
}

TEST(TableWarnings, ChainOfManyInsertsNeedsNoStack) {
  std::string table = "*START_NC_COMMAND NC_0\n*INSERT NC_99999\n*END\n";
  for (int i = 1; i <= 20'000; ++i) {
    table += "*START_NC_COMMAND NC_" + std::to_string(i) + "\n*INSERT NC_" + std::to_string(i - 1) +
             "\n*END\n";
  }
  EXPECT_EQ(warnings(table), "");
}

TEST(TableWarnings, FormatThatCannotPrintIsMarked) {
  EXPECT_EQ(warnings("*START_FORMAT MFG_XPOINT\n%s\n*END\n"),
            "T:2:1: warning unusable-format: no number can be printed with the format of "
            "MFG_XPOINT; write one conversion of e, f, g or a, such as %11.5f\n"
            "  %s\n"
            "  ^~\n");
}

TEST(TableWarnings, OnlyTheLastFormatCounts) {
  EXPECT_EQ(warnings("*START_FORMAT MFG_XPOINT\n%s\n/%d\n%11.5f\n/%d\n*END\n"), "");
}

TEST(TableWarnings, FormatOfNoParameterIsPassedOver) {
  EXPECT_EQ(warnings("*START_FORMAT XPOINT\n%s\n*END\n"), "");
}

TEST(TableWarnings, FormatBlockWithoutFormatIsMarked) {
  const char* const warning =
      "T:1:15: warning unusable-format: the section of MFG_XPOINT holds no format, so nothing is "
      "printed for it; write one conversion of e, f, g or a, such as %11.5f\n"
      "  *START_FORMAT MFG_XPOINT\n"
      "                ^~~~~~~~~~\n";
  EXPECT_EQ(warnings("*START_FORMAT MFG_XPOINT\n*END\n"), warning);
  EXPECT_EQ(warnings("*START_FORMAT MFG_XPOINT\n/%11.5f\n*END\n"), warning);
}

TEST(TableWarnings, FormatBlockWithoutEndIsPassedOver) {
  EXPECT_EQ(warnings("*START_FORMAT MFG_XPOINT\n"), "");
}

TEST(TableWarnings, WarningsBeyondFiftyAreCounted) {
  std::string table;
  for (int i = 0; i < 52; ++i) table += "*START_FORMAT MFG_A\n%s\n*END\n";
  const std::string text = warnings(table);
  EXPECT_NE(text.find("T:149:1: warning unusable-format"), std::string::npos);
  EXPECT_EQ(text.find("T:152:1:"), std::string::npos);
  EXPECT_TRUE(text.ends_with("T: warning more-warnings: 2 more warnings are not shown\n"));
}

TEST(TableWarnings, BinaryBytesAreRead) {
  EXPECT_EQ(warnings(std::string_view("\0\xFF\x80*START_LIST MFG_A\n\0\n*END\n", 28)), "");
}

TEST(TableWarnings, AbsentFileIsAnError) {
  const TableFile file("");
  file.remove();
  EXPECT_THROW(static_cast<void>(tableWarnings(std::string(file.path().View()))), UnreadableTable);
}

}  // namespace
}  // namespace host
