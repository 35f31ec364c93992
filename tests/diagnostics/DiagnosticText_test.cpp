#include <gtest/gtest.h>

#include <string>

#include "inspect/diagnostics/Diagnostic.h"

namespace host {
namespace {

Diagnostic finding() {
  Diagnostic diagnostic;
  diagnostic.file = "t.pptable";
  diagnostic.line = 3;
  diagnostic.column = 14;
  diagnostic.width = 4;
  diagnostic.key = "ERR_5006";
  diagnostic.message = "no name";
  diagnostic.source = {"*START_LIST  FEED", 1, false};
  return diagnostic;
}

TEST(DiagnosticText, PlacedErrorGivesPlaceSourceLineAndCaret) {
  EXPECT_EQ(diagnosticText(finding()),
            "t.pptable:3:14: error ERR_5006: no name\n"
            "  *START_LIST  FEED\n"
            "               ^~~~\n");
}

TEST(DiagnosticText, ErrorWithoutPlaceGivesOneLine) {
  Diagnostic diagnostic;
  diagnostic.file = "t.pptable";
  diagnostic.message = "it is a directory";
  EXPECT_EQ(diagnosticText(diagnostic), "t.pptable: error: it is a directory\n");
}

TEST(DiagnosticText, WarningIsNamed) {
  Diagnostic diagnostic;
  diagnostic.severity = Severity::Warning;
  diagnostic.file = "t";
  diagnostic.key = "no-section";
  diagnostic.message = "nothing in it";
  EXPECT_EQ(diagnosticText(diagnostic), "t: warning no-section: nothing in it\n");
}

TEST(DiagnosticText, LineWithoutColumnHasNoCaret) {
  Diagnostic diagnostic = finding();
  diagnostic.column = 0;
  EXPECT_EQ(diagnosticText(diagnostic), "t.pptable:3: error ERR_5006: no name\n");
}

TEST(DiagnosticText, ColumnBehindTheLineGivesCaretBehindIt) {
  Diagnostic diagnostic = finding();
  diagnostic.source.text = "*START_LIST";
  diagnostic.column = 13;
  diagnostic.width = 1;
  EXPECT_EQ(diagnosticText(diagnostic),
            "t.pptable:3:13: error ERR_5006: no name\n"
            "  *START_LIST\n"
            "              ^\n");
}

TEST(DiagnosticText, EscapedBytesMoveTheCaret) {
  Diagnostic diagnostic = finding();
  diagnostic.source.text =
      "\x1B\t\xFF"
      "abc";
  diagnostic.column = 4;
  diagnostic.width = 3;
  EXPECT_EQ(diagnosticText(diagnostic),
            "t.pptable:3:4: error ERR_5006: no name\n"
            "  \\x1b \\xff"
            "abc\n"
            "           ^~~\n");
}

TEST(DiagnosticText, CharacterOfSeveralBytesTakesOnePlace) {
  Diagnostic diagnostic = finding();
  diagnostic.source.text = "\xC3\xA4\xE2\x82\xACX";
  diagnostic.column = 6;
  diagnostic.width = 1;
  EXPECT_EQ(diagnosticText(diagnostic),
            "t.pptable:3:6: error ERR_5006: no name\n"
            "  \xC3\xA4\xE2\x82\xACX\n"
            "    ^\n");
}

TEST(DiagnosticText, LongLineIsCutAroundTheCaret) {
  Diagnostic diagnostic = finding();
  diagnostic.source = {std::string(300, 'a') + "BAD" + std::string(300, 'c'), 1, false};
  diagnostic.column = 301;
  diagnostic.width = 3;
  EXPECT_EQ(diagnosticText(diagnostic),
            "t.pptable:3:301: error ERR_5006: no name\n"
            "  ..." +
                std::string(64, 'a') + "BAD" + std::string(29, 'c') + "...\n" +
                std::string(2 + 3 + 64, ' ') + "^~~\n");
}

TEST(DiagnosticText, MarkIsCutWithTheLine) {
  Diagnostic diagnostic = finding();
  diagnostic.source = {std::string(400, 'x'), 1, true};
  diagnostic.column = 1;
  diagnostic.width = 2000;
  EXPECT_EQ(diagnosticText(diagnostic),
            "t.pptable:3:1: error ERR_5006: no name\n"
            "  " +
                std::string(96, 'x') + "...\n  ^" + std::string(95, '~') + "\n");
}

TEST(DiagnosticText, ExcerptFromTheMiddleKeepsTheCaret) {
  Diagnostic diagnostic = finding();
  diagnostic.source = {"abcdef", 1001, true};
  diagnostic.column = 1003;
  diagnostic.width = 2;
  EXPECT_EQ(diagnosticText(diagnostic),
            "t.pptable:3:1003: error ERR_5006: no name\n"
            "  ...abcdef...\n"
            "       ^~\n");
}

TEST(DiagnosticText, FileNameAndMessageAreMadeSafe) {
  Diagnostic diagnostic;
  diagnostic.file = "a\nb";
  diagnostic.message = "\x1B[2J";
  EXPECT_EQ(diagnosticText(diagnostic), "a\\x0ab: error: \\x1b[2J\n");
}

TEST(TerminalSafe, OrdinaryTextStaysAsItIs) {
  EXPECT_EQ(terminalSafe("GOTO/1,2 \xC3\xBC \xF0\x9F\x94\xA7"),
            "GOTO/1,2 \xC3\xBC \xF0\x9F\x94\xA7");
}

TEST(TerminalSafe, ControlCharactersOfUnicodeAreEscaped) {
  EXPECT_EQ(terminalSafe("\xC2\x9B"), "\\xc2\\x9b");
  EXPECT_EQ(terminalSafe("\x7F"), "\\x7f");
}

TEST(TerminalSafe, MarksOfWritingDirectionAreEscaped) {
  EXPECT_EQ(terminalSafe("a\xE2\x80\xAE"
                         "b"),
            "a\\xe2\\x80\\xaeb");
}

TEST(TerminalSafe, BytesThatAreNotUtf8AreEscaped) {
  EXPECT_EQ(terminalSafe("\xE4"), "\\xe4");
  EXPECT_EQ(terminalSafe("\xC0\xAF"), "\\xc0\\xaf");
  EXPECT_EQ(terminalSafe("\xED\xA0\x80"), "\\xed\\xa0\\x80");
}

}  // namespace
}  // namespace host
