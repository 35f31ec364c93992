// The warnings about one line: the line, and what is expected, each as its column and key.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "inspect/lint/Lint.h"
#include "tests/table/TableFiles.h"

namespace host {
namespace {

constexpr std::string_view kBefore = "*START_NC_COMMAND NC_A\n";
constexpr std::string_view kBehind =
    "\n*END\n"
    "*START_FORMAT MFG_A\n%11.5f\n*END\n*START_FORMAT MFG_B\n%.3f\n*END\n"
    "*START_LIST MFG_W\nRPM,SMMRPM\n*END\n";

/// What is told of a line, "COLUMN KEY" for each finding.
std::string lintOfLine(std::string_view line) {
  const TableFile file((std::string(kBefore) += line) += kBehind);
  std::string text;
  for (const Diagnostic& finding : lintTable(std::string(file.path().View()))) {
    // That depends on the other lines of the table.
    if (finding.severity == Severity::Note || finding.key == "idle-format") continue;
    EXPECT_EQ(finding.line, 2) << finding.key;
    text += (text.empty() ? "" : ", ") + std::to_string(finding.column) + ' ' + finding.key;
  }
  return text;
}

struct Case {
  std::string_view line;
  std::string_view expected;
};

void expectAll(const std::vector<Case>& cases) {
  for (const auto& [line, expected] : cases) EXPECT_EQ(lintOfLine(line), expected) << line;
}

TEST(LintLines, ProductBehindSumIsTold) {
  expectAll({{"X/2+3*4", "6 no-precedence"},
             {"X/2*3+4", ""},
             {"X/2+3,3*4", ""},
             {"X/%MFG_A-%MFG_B*2", "16 no-precedence"},
             {"X/1+%MFG_A/4", "11 no-precedence"},
             {"X/-2*3", ""},
             {"X/2*-3*4", ""},
             {"X/1+2*3*4", "6 no-precedence, 8 no-precedence"},
             {"X/A+B*C", ""},
             {"PPRINT 2+3*4", ""}});
}

TEST(LintLines, OperatorInExpressionIsTold) {
  expectAll({{"X/%(A+B),1", "6 operator-in-expression"},
             {"X/%(A-2*B),1", "6 operator-in-expression"},
             {"X/%(A/B),1", ""},
             {"X/%(A/2),1", "6 operator-in-expression"},
             {"X/%(A)+1", ""},
             {"X/%(A)/2", ""},
             {"PPRINT %(A+B)", "11 operator-in-expression"}});
}

TEST(LintLines, NumberWithExponentIsTold) {
  expectAll({{"X/%MFG_A+1e5", "10 exponent-operand"},
             {"X/1.5E-3*2", "3 exponent-operand"},
             {"X/%MFG_A/1e-2", "10 exponent-operand"},
             {"X/%MFG_A/5E+1", "10 exponent-operand"},
             {"X/(6/5e-1),5", "6 exponent-operand"},
             {"X/6/5e-1*2", "5 exponent-operand"},
             {"X/%MFG_A/1e2", ""},
             {"X/1e2/10", "3 exponent-operand"},
             {"X/(1e2/-3)", "4 exponent-operand"},
             {"X/-1e5", ""},
             {"X/(POINT/1e5,1)", ""},
             {"X/1e5", ""},
             {"X/1e-5", ""},
             {"X/1e5,2+3", ""},
             {"X/%MFG_A+100000", ""},
             {"X/HOLE1E5+2", ""},
             {"PPRINT 1e5+1", ""}});
}

TEST(LintLines, DivisorWithLongReciprocalIsTold) {
  expectAll({{"X/%MFG_A/10001", "10 large-divisor"},
             {"X/%MFG_A/1e5", "10 large-divisor"},
             {"X/%MFG_A/10000", ""},
             {"X/%MFG_A/0.00002", ""},
             {"X/7/20000", "4 division-kept"}});
}

TEST(LintLines, RoundedReciprocalIsTold) {
  expectAll({{"X/%MFG_A/3", "10 short-reciprocal"},
             {"X/%MFG_A/1024", "10 short-reciprocal"},
             {"X/%MFG_A/25.4", "10 short-reciprocal"},
             {"X/%MFG_A/128", ""},
             {"X/%MFG_A/0.1", ""},
             {"X/%MFG_A/30000", "10 large-divisor"},
             {"PPRINT %MFG_A/2/3", "14 division-in-name"},
             {"PPRINT 1/%MFG_A/3", "16 division-kept"}});
}

TEST(LintLines, ParenthesesThatStayAreTold) {
  expectAll({{"X/(%MFG_A+1)", "3 parentheses-kept"},
             {"X/(%MFG_A/4),(2)", "3 parentheses-kept, 14 parentheses-kept"},
             {"X/1+(-%MFG_A*2)", "4 empty-operand, 5 parentheses-kept, 6 minus-before-reference"},
             {"X/(6/%MFG_A)", ""},
             {"X/((6/%MFG_A))", "6 division-kept"},
             {"X/(POINT/1+2)", ""},
             {"X/(1e2)", "3 parentheses-kept"},
             {"X/(E)", ""},
             {"X/(1,2)", ""},
             {"X/()", ""},
             {"X/(1", "3 unbalanced-parentheses"},
             {"X/%(1)", ""},
             {"INSERT X(%MFG_A)", ""},
             {"PPRINT (%MFG_A,+1)", ""}});
}

TEST(LintLines, SecondMinusIsTold) {
  expectAll({{"X/--5", "4 double-minus"},
             {"X/2*--5", "5 double-minus"},
             {"X/5---3", "5 double-minus"},
             {"X/5--3", ""},
             {"X/5*-3", ""},
             {"X/--%MFG_A", "4 minus-before-reference"},
             {"PPRINT --5", ""}});
}

TEST(LintLines, DivisionThatStaysIsTold) {
  expectAll({{"X/%MFG_A/%MFG_B", "9 division-in-name"},
             {"X/(%MFG_A/%MFG_B)", ""},
             {"X/(6/%MFG_B)", ""},
             {"X/(%MFG_A/%MFG_B/2)", "10 division-in-name"},
             {"X/%MFG_A/0", "9 division-in-name"},
             {"X/%MFG_A/-2", "9 division-in-name"},
             {"%MFG_A/4", "7 division-in-name"},
             {"X/%MFG_A/4", ""},
             {"X/%MFG_A/4/2", "11 division-kept"},
             {"X/6/3", "4 division-kept"},
             {"X/6/-3", "4 division-kept"},
             {"X/6/(%MFG_A)", "4 division-kept, 5 parentheses-kept"},
             {"X/%MFG_A-6/-3", "11 division-kept"},
             {"X/(6/0)", "5 division-kept"},
             {"X/(%MFG_A/0)", "10 division-in-name"},
             {"X/(6/0.00001)", ""},
             {"X/6/%MFG_A", "4 division-kept"},
             {"X/(1+2)/3", "3 parentheses-kept, 8 division-kept"},
             {"X/ON/OFF", ""},
             {"X/(POINT/%MFG_A,%MFG_B)", ""},
             {"PARTNO 12/5/2026", ""},
             {"PPRINT 1/%MFG_A/4", "16 division-kept"}});
}

TEST(LintLines, MissingOperandIsTold) {
  expectAll({{"X/%MFG_A+,5", "9 empty-operand"},
             {"X/+5", "3 empty-operand"},
             {"X/5*", "4 empty-operand"},
             {"X/5++3", "4 empty-operand, 5 empty-operand"},
             {"X/2*(3+4)", "4 empty-operand, 5 parentheses-kept"},
             {"X/5+3", ""},
             {"X/5*-3", ""},
             {"INSERT M8+", "10 empty-operand"},
             {"PARTNO A-1", ""},
             {"PPRINT A+", ""},
             {"$$ -", ""}});
}

TEST(LintLines, MinusBeforeWordIsTold) {
  expectAll({{"X/-MM", "3 minus-before-word"},
             {"X/5,-MM-3", "5 minus-before-word"},
             {"X/-5", ""},
             {"X/-5MM", ""},
             {"X/-.5", ""},
             {"X/-.A", "3 minus-before-word"},
             {"X/A-MM", ""},
             {"PPRINT -MM", ""}});
}

TEST(LintLines, MinusBeforeReferenceIsTold) {
  expectAll({{"X/-%MFG_A", "3 minus-before-reference"},
             {"X/5*-%MFG_A", "5 minus-before-reference"},
             {"X/0-%MFG_A", ""},
             {"X/5-3,%MFG_A", ""},
             {"PPRINT -%MFG_A", ""}});
}

TEST(LintLines, SignBehindNameInCommentIsTold) {
  expectAll({{"PPRINT %MFG_A-5", "14 sign-in-comment"},
             {"$$ %MFG_A IS - 5", "14 sign-in-comment"},
             {"X/$$%MFG_A*5", "11 sign-in-comment"},
             {"PPRINT -%MFG_A", ""},
             {"PPRINT %MFG_A, A-B", ""},
             {"X/%MFG_A-5", ""}});
}

TEST(LintLines, NameThatGoesOnIsTold) {
  expectAll({{"PPRINT %MFG_A IS, OK", "14 blank-in-name"},
             {"PPRINT %MFG_A , OK", "14 blank-in-name"},
             {"PPRINT &MFG_W %MFG_A, OK", "14 blank-in-name"},
             {"PPRINT %MFG_A IS OK", ""},
             {"PPRINT %MFG_A, IS OK", ""},
             {"PPRINT \\%MFG_A IS, OK", ""},
             {"PARTNO %MFG_A IS, OK", "14 blank-in-name"}});
}

TEST(LintLines, LostEndOfNameIsTold) {
  expectAll({{"(P/%MFG_A)ON", "11 text-behind-parenthesis"},
             {"(P/%MFG_A)$", "11 text-behind-parenthesis, 11 dangling-comma"},
             {"((P/%MFG_A))", ""},
             {"(P/%MFG_A),ON", ""},
             {"X/%MFG_A$", "9 dollar-behind-name, 9 dangling-comma"},
             {"X/&MFG_W,$", "10 dangling-comma"},
             {"X/%MFG_A,$", "10 dangling-comma"}});
}

TEST(LintLines, UnknownParameterIsTold) {
  expectAll({{"X/%MFG_NONE", "3 unknown-parameter"},
             {"X/2,&MFG_NONE", "5 unknown-parameter"},
             {"X/(%MFG_NONE/%MFG_A)", "4 unknown-parameter"},
             {"X/%MFG_A,&MFG_W", ""},
             {"X/%MFG_XPOINT", ""},
             {"TPRINT/%MFG_TOOL_NAME", ""},
             {"X/%(NONE)", ""},
             {"X/\\%MFG_NONE", ""}});
}

TEST(LintLines, ReferenceInNameIsTold) {
  expectAll({{"X/%MFG_A.%MFG_B", "10 reference-in-name"},
             {"X/&MFG_W%MFG_A", "9 reference-in-name"},
             {"X/%MFG_A,%MFG_B", ""},
             {"X/%MFG_A/%MFG_B", "9 division-in-name"}});
}

TEST(LintLines, ParameterWithoutPrefixIsTold) {
  expectAll({{"GOTO/MFG_A", "6 bare-parameter"},
             {"GOTO/#MFG_A,%MFG_A", "7 bare-parameter"},
             {"GOTO/%MFG_A,(MFG_B)", "14 bare-parameter"},
             {"X/\\%MFG_A", ""},
             {"PPRINT MFG_A", ""},
             {"GOTO/OWN_MFG_A", ""}});
}

TEST(LintLines, MajorWordWithoutSlashIsTold) {
  expectAll({{"FEDRAT,0.1", "7 missing-slash"},
             {"FEDRAT.1", "7 missing-slash"},
             {"GOTO%MFG_A", "5 missing-slash"},
             {"GOTO=1", "5 missing-slash"},
             {"GOTO", ""},
             {"GOTO/1", ""},
             {"TLON,GOFWD/1", ""},
             {"RADIUS,5", ""},
             {"MYWORD,5", ""}});
}

TEST(LintLines, EmptyArgumentIsTold) {
  expectAll({{"GOTO/1,,2", "8 empty-argument"},
             {"GOTO/,1", "6 empty-argument"},
             {"GOTO/(POINT/1,)", "15 empty-argument"},
             {"GOTO/(,1)", "7 empty-argument"},
             {"GOTO/", "5 empty-argument"},
             {"GOTO/1,$", "8 dangling-comma"},
             {"GOTO/1,", "7 dangling-comma"},
             {"PPRINT A,,B/", ""}});
}

// A number of MFG_A takes 11 columns, one of MFG_B 9, a word of MFG_W 6, a result 12.
TEST(LintLines, LineBeyondColumn72IsTold) {
  const std::string text61(61, 'X');
  expectAll({{text61 + "%MFG_A", ""},
             {text61 + "X%MFG_A", "63 wide-line"},
             {text61 + "X,%MFG_B", ""},
             {text61 + "XX,%MFG_B", "65 wide-line"},
             {text61 + "XXXX/&MFG_W", ""},
             {text61 + "XXXXX/&MFG_W", "68 wide-line"},
             {text61 + "XXXXXXXXX,", "71 dangling-comma"},
             {text61 + "XXXXXXXXXX,", "72 dangling-comma, 72 wide-line"},
             {text61 + "/1+2", "63 wide-line"},
             {text61.substr(2) + "/1+2", ""},
             {text61 + "/%MFG_TOOL_NAME", ""},
             {text61 + "XXXXXXXXXX\xC3\xA4", ""},
             {text61 + "XXXXXXXXXX\xC3\xA4X", "74 wide-line"},
             {text61 + "XXXXXXXXXX\\%", ""},
             {text61 + "XXXXXXXXXX\\%X", "74 wide-line"}});
}

TEST(LintLines, BlankThatEndsTheLineIsTold) {
  expectAll({{"X/%MFG_A ,5", "10 split-line"},
             {"X/%MFG_A\n X/%MFG_B", ""},
             {"PPRINT A B", ""},
             {"X/1 PPRINT A", "5 split-line"}});
}

TEST(LintLines, CharactersThatSeparateNothingAreTold) {
  expectAll({{"GOTO/1;2", "7 wrong-separator"},
             {"GOTO\\1", "5 wrong-separator, 5 missing-slash"},
             {"GOTO/1\\%2", ""},
             {"PPRINT 1;2", ""},
             {"$$ 1;2\\3", ""}});
}

TEST(LintLines, LetterInANumberIsTold) {
  expectAll({{"DELAY/1O", "7 letter-in-number"},
             {"DELAY/1O.5", "7 letter-in-number"},
             {"DELAY/O.5", "7 letter-in-number"},
             {"DELAY/.O5", "7 letter-in-number"},
             {"DELAY/5o0", "7 letter-in-number"},
             {"DELAY/1O,2O", "7 letter-in-number, 10 letter-in-number"},
             {"DELAY/ON", ""},
             {"DELAY/O1", ""},
             {"DELAY/3AXIS", ""},
             {"DELAY/%MFG_A1O", "7 unknown-parameter"},
             {"PPRINT 1O", ""}});
}

TEST(LintLines, NameOfAnInstructionIsTold) {
  expectAll({{"NC_GOTO", "1 bare-instruction"},
             {"GOTO/NC_B", "6 bare-instruction"},
             // The catalogue begins a line with it.
             {"NC_HEAD_CHANGE/1", ""},
             {"PPRINT NC_GOTO", ""}});
}

TEST(LintLines, ParenthesesThatDoNotMatchAreTold) {
  expectAll({{"TLON/(LINE/1,2),ON", ""},
             {"TLON/(LINE/1,2,ON", "6 unbalanced-parentheses"},
             {"TLON/LINE/1,2),ON", "14 unbalanced-parentheses"},
             {"TLON/((LINE/1,2)", "6 unbalanced-parentheses"},
             {"X/%(A+1", "4 unbalanced-parentheses, 6 operator-in-expression"},
             {"PPRINT :-)", ""}});
}

}  // namespace
}  // namespace host
