// Tool tables as rs274 reads them.

#include "post/listing/ToolTable.h"

#include <gtest/gtest.h>

#include <string>

#include "post/toolpath/LineReader.h"
#include "tests/support/InputFile.h"

namespace {

using host::LengthUnit;

/// "LINE:COLUMN: message" of a table that is refused; empty for one that is read.
std::string mistakeOf(std::string_view text) {
  const InputFile file(text);
  try {
    static_cast<void>(host::readToolTable(file.path(), LengthUnit::Millimetre));
    return "";
  } catch (const host::InputError& error) {
    return std::to_string(error.line()) + ':' + std::to_string(error.column()) + ": " +
           error.message();
  }
}

std::string written(std::string_view text, LengthUnit unit) {
  const InputFile file(text);
  return host::toolTableText(host::readToolTable(file.path(), unit));
}

TEST(ToolTable, EveryWordIsRead) {
  const InputFile file(
      "; head\n\n t17 P3 Z57 X+1 Y-2.5 D6 I10 J20 Q2 A90 ; 6 mm end mill \r\nT5000p4;\n");
  const auto table = host::readToolTable(file.path(), LengthUnit::Millimetre);
  ASSERT_EQ(table.tools.size(), 2U);
  const host::TableTool& tool = table.tools.at(17);
  EXPECT_EQ(tool.pocket, 3);
  EXPECT_EQ(tool.offset, (std::array<double, 9>{1.0, -2.5, 57.0, 90.0}));
  EXPECT_EQ(tool.diameter, 6.0);
  EXPECT_EQ(tool.frontAngle, 10.0);
  EXPECT_EQ(tool.backAngle, 20.0);
  EXPECT_EQ(tool.orientation, 2);
  EXPECT_EQ(tool.comment, "6 mm end mill");
  EXPECT_EQ(tool.line, 3);
  EXPECT_EQ(table.tools.at(5000).comment, "");
}

TEST(ToolTable, LengthsAreWrittenInInches) {
  EXPECT_EQ(written("T1 P2 Z25.4 D12.7 A90 U-50.8 I5 ;x\n", LengthUnit::Millimetre),
            "T1 P2 Z1.000000000 A90.000000000 U-2.000000000 D0.500000000 I5.000000000 Q0\n");
  EXPECT_EQ(written("T1 P2 Z2 D0.5\n", LengthUnit::Inch), "T1 P2 Z2.000000000 D0.500000000 Q0\n");
  EXPECT_EQ(written("", LengthUnit::Inch), "");
}

TEST(ToolTable, WrongLinesAreRefusedWithTheirPlace) {
  EXPECT_EQ(
      mistakeOf("T1 P1\nfoo\n"),
      "2:1: a word of a tool table is expected (T, P, X, Y, Z, A, B, C, U, V, W, D, I, J or Q "
      "with a number), or ';' before a comment");
  EXPECT_EQ(mistakeOf("  P1 Z3 ;no tool\n"),
            "1:3: the line names no tool: a word such as T3 is expected");
  EXPECT_EQ(mistakeOf("T1 P1 Zabc\n"), "1:7: the word has no number after its letter");
  EXPECT_EQ(mistakeOf("T1 D\n"), "1:4: the word has no number after its letter");
  EXPECT_EQ(mistakeOf("T1 Dinf\n"), "1:4: the word has no number after its letter");
  EXPECT_EQ(mistakeOf("T1 T2\n"), "1:4: the line has two words T");
  EXPECT_EQ(mistakeOf("T1.5\n"), "1:1: a whole number from 0 to 99999 is expected");
  EXPECT_EQ(mistakeOf("T-1\n"), "1:1: a whole number from 0 to 99999 is expected");
  EXPECT_EQ(mistakeOf("T1 P1001\n"), "1:4: a whole number from 0 to 1000 is expected");
  EXPECT_EQ(mistakeOf("T1 Q10\n"), "1:4: a whole number from 0 to 9 is expected");
  EXPECT_EQ(mistakeOf("T3\n\nT3 P2\n"), "3:1: tool 3 is in line 1 already");
  EXPECT_EQ(mistakeOf(std::string_view("T3 ;a\0b\n", 8)),
            "1:6: a byte is not text; this is not a tool table");
}

TEST(ToolTable, ThousandToolsAreTheMost) {
  std::string text;
  for (int tool = 1; tool <= 1000; ++tool) text += "T" + std::to_string(tool) + "\n";
  EXPECT_EQ(mistakeOf(text), "");
  EXPECT_EQ(mistakeOf(text + "T1001\n"), "1001:1: the table has more than 1000 tools");
}

TEST(ToolTable, MissingFileIsRefused) {
  EXPECT_THROW(static_cast<void>(host::readToolTable("/absent/x", LengthUnit::Inch)),
               host::InputError);
}

}  // namespace
