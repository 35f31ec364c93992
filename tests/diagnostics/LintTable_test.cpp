// The warnings about a table: the table, and what is expected, each as its line, column and key.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/lint/Lint.h"
#include "tests/table/TableFiles.h"

namespace host {
namespace {

std::vector<Diagnostic> findings(std::string_view table) {
  const TableFile file(table);
  auto all = lintTable(std::string(file.path().View()));
  for (Diagnostic& finding : all) finding.file = "T";
  return all;
}

/// "LINE:COLUMN KEY" for each finding, notes left out.
std::string lint(std::string_view table) {
  std::string text;
  for (const Diagnostic& finding : findings(table)) {
    if (finding.severity == Severity::Note) continue;
    text += (text.empty() ? "" : ", ") + std::to_string(finding.line) + ':' +
            std::to_string(finding.column) + ' ' + finding.key;
  }
  return text;
}

std::string words(std::string_view pairs) {
  return lint((std::string("*START_MINOR_WORDS\n") += pairs) += "\n*END\n");
}

TEST(LintTable, EmptyTableHasNoSection) { EXPECT_EQ(lint(""), "0:0 no-section"); }

TEST(LintTable, OfEachKindTheFirstThousandAreShown) {
  std::string table = "*START_NC_COMMAND NC_A\n";
  for (int i = 0; i < 1003; ++i) table += "GOTO/%MFG_OWN" + std::to_string(i) + "\nGOTO/,1\n";
  const auto all = findings(table + "*COMMENT\n*END\n*END\n*END\n");
  std::map<std::string, int> counts;
  for (const Diagnostic& finding : all) ++counts[finding.key];
  EXPECT_EQ(counts["unknown-parameter"], 1001);
  EXPECT_EQ(counts["empty-argument"], 1001);
  EXPECT_EQ(counts["ERR_5001"], 1);
  const auto last = std::find_if(all.rbegin(), all.rend(), [](const Diagnostic& finding) {
    return finding.key == "unknown-parameter";
  });
  ASSERT_NE(last, all.rend());
  EXPECT_EQ(last->line, 2002);
  EXPECT_EQ(last->column, 6);
  EXPECT_EQ(last->severity, Severity::Warning);
  EXPECT_EQ(last->message,
            "this is the first of 3 more of this kind, which are not shown; mend those that are");
  EXPECT_EQ(last->source.text, "GOTO/%MFG_OWN1000");
}

TEST(LintTable, StatementsGoOverLines) {
  const auto body = [](const std::string& lines, const std::string& rest = "") {
    return lint("*START_NC_COMMAND NC_A\n" + lines + "\n*END\n" + rest);
  };
  EXPECT_EQ(body("TLON/(LINE/1,$\n2,3)"), "");
  EXPECT_EQ(body("TLON/(LINE/1,\n2,3"), "2:6 unbalanced-parentheses");
  EXPECT_EQ(body("TLON/(LINE/1,\n2),3)"), "3:5 unbalanced-parentheses");
  EXPECT_EQ(body("TLON/(LINE/1\nGOTO/1)"),
            "2:6 unbalanced-parentheses, 3:7 unbalanced-parentheses");
  EXPECT_EQ(body("GOTO/1,2\n3,4"), "3:1 lost-continuation");
  EXPECT_EQ(body("GOTO/1,2\n,3"), "3:1 lost-continuation");
  EXPECT_EQ(body("GOTO/1,2\n%MFG_XPOINT,%MFG_YPOINT"), "3:1 lost-continuation");
  EXPECT_EQ(body("GOTO/1,2\n%MFG_OUTPUT_COMMENT"), "");
  EXPECT_EQ(body("GOTO/1,2\n5AXIS/1"), "");
  EXPECT_EQ(body("GOTO/1,2,\n3,4,"), "3:4 dangling-comma");
  // Each body ends a statement, that of a sequence too.
  EXPECT_EQ(body("*START_SEQUENCE\nGOTO/1,\n*END\n*START_SEQUENCE\n2,3\n*END"),
            "3:7 dangling-comma");
}

TEST(LintTable, InsertedBodiesCanBePartsOfStatements) {
  const std::string part = "*START_NC_COMMAND NC_PART\n2,(3,\n*END\n";
  EXPECT_EQ(lint(part + "*START_NC_COMMAND NC_A\nGOTO/1,\n*INSERT NC_PART\n4)\n*END\n"), "");
  EXPECT_EQ(lint(part), "2:3 unbalanced-parentheses, 2:5 dangling-comma");
}

TEST(LintTable, AllRefusedLinesAreTold) {
  EXPECT_EQ(lint("*COMMENT\n"
                 "*INSERT X\n"
                 "*START_NC_COMMAND X\n*END\n"
                 "*START_NC_INSTRUCTION X\n*END\n"
                 "*START_LIST X\n*END\n"
                 "*START_FORMAT\n*END\n"
                 "*START_WORDS\n*END\n"),
            "1:1 ERR_5001, 2:9 ERR_5000, 3:19 ERR_5004, 5:23 ERR_5005, 7:13 ERR_5006, "
            "9:15 ERR_5007, 11:1 ERR_5008");
}

TEST(LintTable, RefusedLineIsToldOnceAndNotAsSyntax) {
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n*COMMENT %MFG_XPONT\nX/1 *5\n*END\n"),
            "2:1 ERR_5001, 3:5 split-line, 3:5 empty-operand");
}

TEST(LintTable, EverySectionThatIsNotClosedIsTold) {
  EXPECT_EQ(lint("*START_MINOR_WORDS\nA,1\n"
                 "*START_SYNTAXES\nRAPID\n*END\n"
                 "*START_NC_COMMAND NC_A\n*START_SEQUENCE\n*END\n"),
            "1:1 ERR_5003, 6:1 ERR_5003");
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n*START_LIST MFG_A\n*END\n*END\n"), "");
}

TEST(LintTable, EveryEndThatClosesNothingIsTold) {
  EXPECT_EQ(lint("*END\n*START_SYNTAXES\nRAPID\n*END\n*END\n"), "1:1 ERR_5002, 5:1 ERR_5002");
}

TEST(LintTable, SectionsThatTheCheckCountsAsClosedAreTold) {
  EXPECT_EQ(lint("*END\n*START_SYNTAXES\nRAPID\n"), "1:1 surplus-end, 2:1 unclosed-section");
  EXPECT_EQ(lint("*START_SYNTAXES\nRAPID\n*END\n"), "");
}

TEST(LintTable, NameThatIsNotReadIsTold) {
  EXPECT_EQ(lint("*START_NC_COMMAND X NC_A\n*END\n"), "1:1 unread-name");
  EXPECT_EQ(lint("*START_FORMAT X MFG_A\n%f\n*END\n"), "1:1 unread-name");
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n*INSERT X NC_A\n*END\n"), "2:1 unread-name");
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A X\n*END\n"), "");
}

TEST(LintTable, SecondSectionOfItsKindIsTold) {
  EXPECT_EQ(lint("*START_MINOR_WORDS\nA,1\n*END\n*START_MINOR_WORDS\nA,1\n*END\n"),
            "4:1 unread-section");
  EXPECT_EQ(lint("*START_SYNTAXES\nA\n*END\n*START_SYNTAXES\nB\n*END\n"), "4:1 unread-section");
  EXPECT_EQ(lint("*START_MINOR_WORDS\nA,1\n*END\n*START_MAJOR_WORDS_WITH_TEXT\nB,2\n*END\n"), "");
}

TEST(LintTable, InsertOfAbsentCommandIsTold) {
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n*INSERT NC_B\n*END\n"), "2:9 unknown-insert");
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n*INSERT NC_B\n*END\n*START_NC_COMMAND NC_B\n*END\n"), "");
}

TEST(LintTable, NameThatStandsTwiceIsTold) {
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n*END\n*START_NC_INSTRUCTION NC_A\n*END\n"),
            "3:23 duplicate-name");
  EXPECT_EQ(lint("*START_LIST MFG_A\n*END\n*START_LIST MFG_A\n*END\n"), "3:13 duplicate-name");
  EXPECT_EQ(lint("*START_FORMAT MFG_A\n%f\n*END\n*START_FORMAT MFG_A\n%f\n*END\n"),
            "4:15 duplicate-name");
  EXPECT_EQ(lint("*START_LIST MFG_A\n*END\n*START_FORMAT MFG_A\n%f\n*END\n"), "");
}

TEST(LintTable, WordWithoutCodeIsTold) {
  EXPECT_EQ(words("A,1 B C,3"), "2:5 missing-code");
  EXPECT_EQ(words("A,1 B"), "2:5 missing-code");
  EXPECT_EQ(words("A,1,B,2"), "");
}

TEST(LintTable, NumberInPlaceOfWordIsTold) {
  EXPECT_EQ(words("A,1,2 B,3"), "2:5 shifted-pair");
  EXPECT_EQ(words("3AXIS,1"), "");
}

TEST(LintTable, CodeThatDoesNotConvertIsTold) {
  EXPECT_EQ(words("A,X B,2"), "2:3 code-not-number");
  // It is read as 2147483647, and the pairs after it stay in step.
  EXPECT_EQ(words("A,99999999999 B,2"), "2:3 code-cut");
  EXPECT_EQ(words("A,99999999999 B,2147483647"), "2:3 code-cut, 2:17 duplicate-code");
  EXPECT_EQ(words("A,10I5"), "2:3 code-cut");
  EXPECT_EQ(words("A,1.5"), "2:3 code-cut");
  EXPECT_EQ(words("A,-7 B,+8"), "");
}

// What is beyond the 1023 characters of a line is read as elements of its own.
TEST(LintTable, RestOfALongTextIsALineOfItsOwn) {
  const std::string text(1100, 'x');
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\nPPRINT " + text + "\n*END\n"),
            "2:8 long-token, 2:73 wide-line, 2:1030 split-line, 2:1102 wide-line");
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\nPPRINT " + text.substr(0, 1021) + "\n*END\n"),
            "2:73 wide-line");
}

// The last character of a text goes, a line feed or not, and a word without a text is no line.
TEST(LintTable, TextAtTheEndOfTheTableLosesItsLastCharacter) {
  const std::string command = "*START_NC_COMMAND NC_A\n";
  EXPECT_EQ(lint(command + "INSERT %MFG_XPOINT"), "1:1 ERR_5003, 2:8 unknown-parameter");
  EXPECT_EQ(lint(command + "INSERT %MFG_XPOINT\n"), "1:1 ERR_5003");
  EXPECT_EQ(lint(command + "INSERT"), "1:1 ERR_5003");
}

TEST(LintTable, WordAndCodeThatStandTwiceAreTold) {
  EXPECT_EQ(words("A,1 A,2"), "2:5 duplicate-word");
  EXPECT_EQ(words("A,1 B,1"), "2:7 duplicate-code");
  EXPECT_EQ(lint("*START_MINOR_WORDS\nA,1\n*END\n*START_MAJOR_WORDS_WITH_TEXT\nA,1\n*END\n"),
            "5:1 duplicate-word, 5:3 duplicate-code");
  EXPECT_EQ(words("A,1 a,2"), "");
}

TEST(LintTable, FormatThatPrintsNoNumberIsTold) {
  EXPECT_EQ(lint("*START_FORMAT MFG_A\n%d\n*END\n"), "2:1 unusable-format");
  EXPECT_EQ(lint("*START_FORMAT MFG_A\nX%%\n*END\n"), "2:1 unusable-format");
  EXPECT_EQ(lint("*START_FORMAT MFG_A\n%f\n*END\n"), "");
  EXPECT_EQ(lint("*START_FORMAT MFG_A\nX%.0f%%\n*END\n"), "");
}

TEST(LintTable, AllOfManyMistakesAreTold) {
  std::string table;
  for (int i = 0; i < 60; ++i) {
    table += "*START_FORMAT MFG_A" + std::to_string(i) + "\n%d\n*END\n*X\n";
  }
  // Each has a note too: nothing uses its name.
  EXPECT_EQ(findings(table).size(), 180U);
}

TEST(LintTable, LinesOfEverySequenceAndListAreLookedAt) {
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n"
                 "*START_SEQUENCE\nX/-MM\n*END\n"
                 "*START_SEQUENCE\nX/-QQ\n*END\n"
                 "*END\n"
                 "*START_SYNTAXES\nX/-RR RAPID\n*END\n"),
            "3:3 minus-before-word, 6:3 minus-before-word, 10:3 minus-before-word");
}

TEST(LintTable, PlacesOfMendedLineAreThoseOfTheFile) {
  const std::string full = "X/" + std::string(70, '1') + ",%MFG_YP";
  ASSERT_EQ(full.size(), 80U);
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n" + full + "\nOINT/%MFG_XPOINT,-MM\n*END\n"),
            "2:73 wide-line, 3:5 division-in-name, 3:18 minus-before-word");
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n" + full + "\nOINT,-5\n*END\n"), "2:73 wide-line");
  // free syntaxes are not mended
  EXPECT_EQ(lint("*START_SYNTAXES\n" + full + "\nOINT,-5\n*END\n"),
            "2:73 wide-line, 2:74 unknown-parameter, 3:1 unknown-word");
}

/// The messages of all findings with this key, each after its place.
std::string messages(std::string_view table, std::string_view key) {
  std::string text;
  for (const Diagnostic& finding : findings(table)) {
    if (finding.key != key) continue;
    text += std::to_string(finding.line) + ':' + std::to_string(finding.column) + ' ' +
            std::string(severityName(finding.severity)) + ": " + finding.message + '\n';
  }
  return text;
}

constexpr std::string_view kSections =
    "*START_MAJOR_WORDS_WITH_PARAMETERS\nGOTO,1\nOWNMAJ,2\n*END\n"
    "*START_MINOR_WORDS\nFASTLY,3\n*END\n";

TEST(LintTable, WordThatTheVocabularyDoesNotHoldIsTold) {
  const std::string rest = "; correct the word, or add it to a word section with its code\n";
  const std::string fault =
      ": neither the table's word sections nor standard APT have this word" + rest;
  const std::string sections(kSections);
  const auto unknown = [&](const std::string& body) {
    return messages(sections + "*START_NC_COMMAND NC_A\n" + body + "*END\n", "unknown-word");
  };
  EXPECT_EQ(unknown("OWNMAJ/FASTLY,ON,CLW\nRAPID\n"), "");
  EXPECT_EQ(unknown("LAODTL/3\n"), "9:1 warning: LAODTL, perhaps LOADTL" + fault);
  EXPECT_EQ(unknown("SPINDL/OF\n"), "9:8 warning: OF, perhaps OFF" + fault);
  EXPECT_EQ(unknown("rapid\n"), "9:1 warning: rapid, perhaps RAPID" + fault);
  EXPECT_EQ(unknown("OWNMAJ/FASTYL\n"), "9:8 warning: FASTYL, perhaps FASTLY" + fault);
  EXPECT_EQ(unknown("GOTO/ELSEWHERE\n"), "9:6 warning: ELSEWHERE" + fault);
  EXPECT_EQ(unknown("PPRINT ANY text\n$$ more\nPARTNO X\n"), "");
  EXPECT_EQ(unknown("PPRINTT ANY\n"), "9:1 warning: PPRINTT, perhaps PPRINT" + fault);
  // What touches a value is printed in one piece with it.
  EXPECT_EQ(unknown("GOTO/XQ%MFG_XPOINT\n"), "");
  // A name that a line defines.
  EXPECT_EQ(unknown("PNT1=POINT/0,0,0\nGOTO/PNT1\n"), "");
  EXPECT_EQ(
      messages(sections + "*START_LIST MFG_FEED_UNIT\nMMPM,MMRP,12,3AXIS\n*END\n", "unknown-word"),
      "9:6 warning: MMRP, perhaps MMPR" + fault);
}

TEST(LintTable, NamesAndModifiersAreNotTold) {
  const std::string sections =
      "*START_MAJOR_WORDS_WITH_PARAMETERS\nTLON,1\nGOFWD,2\nMACHIN,3\nCALL,4\n*END\n";
  EXPECT_EQ(lint(sections + "*START_NC_COMMAND NC_A\nTLON,GOFWD/(CIRCLE/0,0,0,5),ON\n*END\n"), "");
  EXPECT_EQ(lint(sections + "*START_NC_COMMAND NC_A\nMACHIN/MYPOST,1\nCALL/MYSUB\n*END\n"), "");
  EXPECT_EQ(lint("*START_LIST MFG_FEED_TYPE\nMACHINING,APPROACH,RETRACT\n*END\n"),
            "1:13 skipped-block");
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\nROTATE/AAXIS\nPLN1/PLN2,PLN2\nIF(A)L1\n*END\n"), "");
}

TEST(LintTable, WithoutSectionsOnlyWordsNearAKnownOrRepeatedOneAreTold) {
  const auto unknown = [](const std::string& body) {
    return lint("*START_NC_COMMAND NC_A\n" + body + "*END\n");
  };
  EXPECT_EQ(unknown("MYWORD/ANOTHER\n"), "");
  EXPECT_EQ(unknown("LAODTL/3\n"), "2:1 unknown-word");
  EXPECT_EQ(unknown("MYWORD/1\nMYWORD/2\nMYWRD/3\n"), "4:1 unknown-word");
  EXPECT_EQ(unknown("MYWORD/1\nMYWRD/3\n"), "");
  EXPECT_EQ(unknown("MYWORD/M8,M\nMYWORD/G1\n"), "");
}

TEST(LintTable, WordsOfSectionsThatNothingUsesAreTold) {
  const std::string command = "*START_NC_COMMAND NC_A\nOWNMAJ/FASTLY\nGOTO/1\n*END\n";
  const std::string sections(kSections);
  EXPECT_EQ(lint(sections + command), "");
  EXPECT_EQ(messages("*START_MINOR_WORDS\nLAODTL,4\n*END\n" + sections + command, "misspelt-word"),
            "2:1 warning: LAODTL, perhaps LOADTL: no line and no list uses this word; correct the "
            "word\n");
  EXPECT_EQ(messages("*START_MINOR_WORDS\nFASTYL,4\n*END\n" + command, "misspelt-word"),
            "2:1 warning: FASTYL, perhaps FASTLY: no line and no list uses this word; correct the "
            "word\n");
  // All three are words of the machine.
  const std::string all =
      "*START_MAJOR_WORDS_WITHOUT_PARAMETERS\nFASTL1,4 FASTL2,5\n*END\n" + sections + command;
  EXPECT_EQ(messages(all, "misspelt-word"), "");
  EXPECT_EQ(messages(all, "unused-words"),
            "2:1 note: FASTL1 and 1 more: used by no line and no list; leave it if another table "
            "uses it\n");
}

TEST(LintTable, NamesThatNothingUsesAreTold) {
  EXPECT_EQ(messages("*START_FORMAT MFG_XPIONT\n%f\n*END\n", "misspelt-name"),
            "1:15 warning: MFG_XPIONT, perhaps MFG_XPOINT: nothing uses this name; correct the "
            "name\n");
  EXPECT_EQ(messages("*START_LIST MFG_FEED_UNITS\nIPM\n*END\n", "misspelt-name"),
            "1:13 warning: MFG_FEED_UNITS, perhaps MFG_FEED_UNIT: nothing uses this name; correct "
            "the name\n");
  EXPECT_EQ(messages("*START_NC_INSTRUCTION NC_GOTTO\nSTOP\n*END\n", "misspelt-name"),
            "1:23 warning: NC_GOTTO, perhaps NC_GOTO: nothing uses this name; correct the name\n");
  // A listing asks for it.
  EXPECT_EQ(lint("*START_NC_COMMAND NC_PROGRAM_STOP\nSTOP\n*END\n"), "");
  EXPECT_EQ(lint("*START_NC_COMMAND NC_COOLAN\nSTOP\n*END\n"), "1:19 misspelt-name");
  // The name at which it would be mended has a block.
  EXPECT_EQ(lint("*START_NC_COMMAND NC_GOTTO\nSTOP\n*END\n"
                 "*START_NC_COMMAND NC_GOTO\nSTOP\n*END\n"),
            "");
  // Numbers tell variants apart.
  EXPECT_EQ(lint("*START_NC_COMMAND NC_CIRCLE3\nSTOP\n*END\n"), "");
  EXPECT_EQ(messages("*START_NC_INSTRUCTION NC_MINE\nSTOP\n*END\n", "unused-name"),
            "1:23 note: NC_MINE: nothing in the table or in the default catalogue uses this name; "
            "leave it if a job asks for it\n");
  EXPECT_EQ(messages("*START_NC_COMMAND NC_MINE\nSTOP\n*END\n", "unused-name"), "");
  EXPECT_EQ(messages("*START_FORMAT MFG_MINE\n%f\n*END\n"
                     "*START_NC_COMMAND NC_MINE\nSTOP/%MFG_MINE\n*END\n",
                     "unused-name"),
            "");
}

TEST(LintTable, BlockThatALoadSkipsIsTold) {
  EXPECT_EQ(lint("*START_LIST MFG_XPOINT\nMMPM\n*END\n"), "1:13 skipped-block");
  EXPECT_EQ(lint("*START_FORMAT MFG_SPNDL_UNIT\n%f\n*END\n"), "1:15 skipped-block");
  EXPECT_EQ(lint("*START_FORMAT MFG_OUTPUT_COMMENT\n%f\n*END\n"), "1:15 skipped-block");
  EXPECT_EQ(lint("*START_FORMAT MFG_XPOINT\n%f\n*END\n"), "");
  // Without a type it is made by the load.
  EXPECT_EQ(lint("*START_LIST MFG_TOTAL_DEPTH\nMMPM\n*END\n"), "");
  EXPECT_EQ(lint("*START_LIST MFG_OF_MINE\nMMPM\n*END\n"), "");
}

TEST(LintTable, KeywordWithMoreCharactersIsTold) {
  EXPECT_EQ(messages("*START_NC_COMMAND NC_A\nSTOP\n*ENDD\n", "inexact-keyword"),
            "3:1 warning: *ENDD is read as *END: the keyword has characters too many and is read "
            "as the one inside it; write the keyword alone\n");
  EXPECT_EQ(lint("*START_FORMATT MFG_XPOINT\n%f\n*END\n"), "1:1 inexact-keyword");
  EXPECT_EQ(lint("*START_FORMAT\tMFG_XPOINT\r\n%f\r\n*END\r\n"), "1:15 ERR_5007");
}

TEST(LintTable, OwnLinesBesideSequencesAreTold) {
  const std::string fault =
      "the lines before it and those of this sequence are printed together; put the lines before "
      "it into a sequence of their own\n";
  EXPECT_EQ(messages("*START_NC_COMMAND NC_A\nSTOP\n*START_SEQUENCE\nRAPID\n*END\n*END\n",
                     "mixed-sequence"),
            "3:1 warning: *START_SEQUENCE: " + fault);
  EXPECT_EQ(lint("*START_NC_COMMAND NC_B\nSTOP\n*END\n"
                 "*START_NC_COMMAND NC_A\n*INSERT NC_B\n"
                 "*START_SEQUENCE\nRAPID\n*END\n*START_SEQUENCE\nRAPID\n*END\n*END\n"),
            "6:1 mixed-sequence");
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n*START_SEQUENCE\nRAPID\n*END\nSTOP\n*END\n"),
            "5:1 lost-line");
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\n*START_SEQUENCE\nRAPID\n*END\n"
                 "*START_SEQUENCE\nSTOP\n*END\n*END\n"),
            "");
}

TEST(LintTable, FormatThatNoNumberIsPrintedInIsTold) {
  const std::string format = "*START_FORMAT MFG_XPOINT\n%.2f\n*END\n";
  const auto idle = [&](const std::string& line) {
    return lint(format + "*START_NC_COMMAND NC_A\n" + line + "\n*END\n");
  };
  EXPECT_EQ(idle("GOTO/%MFG_XPOINT+10"), "1:15 idle-format");
  EXPECT_EQ(idle("GOTO/%MFG_XPOINT+10,%MFG_XPOINT"), "");
  EXPECT_EQ(idle("GOTO/%MFG_YPOINT"), "");
  EXPECT_EQ(idle("GOTO/(%MFG_XPOINT/%MFG_YPOINT)"), "1:15 idle-format");
  EXPECT_EQ(lint("*START_FORMAT MFG_CMP_TL_SET_X\n%.2f\n*END\n"), "1:15 idle-format");
  EXPECT_EQ(lint("*START_FORMAT MFG_CMP_NOSE_RADIUS\n%.2f\n*END\n"), "1:15 idle-format");
}

TEST(LintTable, WindowsLineEndsChangeNothing) {
  EXPECT_EQ(lint("*START_NC_COMMAND NC_A\r\nX/-MM\r\nPPRINT A\r\n*END\r\n"),
            "2:3 minus-before-word");
}

TEST(LintTable, WarningsTellWhatToDo) {
  std::string text;
  for (const Diagnostic& finding :
       findings("*START_NC_COMMAND NC_A\nX/%MFG_XPONT\n*END\n*START_LIST\n*END\n")) {
    text += diagnosticText(finding);
  }
  EXPECT_EQ(text,
            "T:2:3: warning unknown-parameter: %MFG_XPONT, perhaps MFG_XPOINT: neither the "
            "document nor the table knows this parameter; correct the name, unless every job "
            "states it for its activities\n"
            "  X/%MFG_XPONT\n"
            "    ^~~~~~~~~~\n"
            "T:4:13: error ERR_5006: *START_LIST names no parameter; write \"*START_LIST "
            "MFG_NAME\"\n"
            "  *START_LIST\n"
            "              ^\n");
}

/// The lint's errors are those of the reader's check.
TEST(LintTable, ErrorsAreThoseOfTheCheck) {
  constexpr std::string_view kTables[] = {
      "",
      "*END\n",
      "*START_LISTING MFG_A\n*ENDX\n",
      "*START_SEQUENCE\n*END\n",
      "*INSERT  NC_A\n",
      "*INSERT\tNC_A\n",
      "*START\n*END\n",
      "X*START_SYNTAXES\n",
      " *START_SYNTAXES\n",
      "*END *START_SYNTAXES\n*END\n",
      "*START_NC_COMMAND X NC_A\n*END\n",
      "*START_SYNTAXES\n*START_SYNTAXES\n*END",
  };
  for (const std::string_view table : kTables) {
    const TableFile file(table);
    KEPMfgPPTableTxt reader{file.path()};
    const auto all = findings(table);
    const bool hasError = std::any_of(all.begin(), all.end(), [](const Diagnostic& finding) {
      return finding.severity == Severity::Error;
    });
    EXPECT_EQ(hasError, KEPFailed(reader.CheckFileSyntax())) << table;
  }
}

TEST(LintTable, LongLinesCountAsTheCheckCountsThem) {
  const std::string line = "X" + std::string(1022, ' ') + "*COMMENT\n";
  EXPECT_EQ(lint("*START_SYNTAXES\n*END\n" + line), "3:1024 ERR_5001");
}

}  // namespace
}  // namespace host
