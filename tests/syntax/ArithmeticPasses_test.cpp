#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "language/syntax/GroupCursor.h"
#include "language/syntax/Passes.h"
#include "language/syntax/Signs.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {
namespace {

struct PassCase {
  const char* line;
  const char* result;
};

/// A line that was started with a text.
struct Started : SyntaxLine {
  explicit Started(std::string_view text) { start(text); }
};

std::string cleaned(std::string_view text) {
  SyntaxLine line;
  line.start(text);
  cleanParentheses(line);
  return std::string(line.text());
}

std::string rewritten(std::string_view text) {
  SyntaxLine line;
  line.start(text);
  rewriteDivisions(line);
  return std::string(line.text());
}

TEST(CleanParentheses, LineGivesResult) {
  constexpr PassCase kCases[] = {
      {"X=((A+B)+D)", "X=(A+B+D)"},
      {"X/(A+B)", "X/A+B"},
      {"X/(A)(B)*1", "X/AB*1"},
      {"X/((A)-1", "X/(A-1"},
      // without a sign nothing is redundant
      {"X/(A)", "X/(A)"},
      {"X/((A/B))", "X/((A/B))"},
      // the very first character and the groups of "%(" are kept
      {"(A+B)", "(A+B)"},
      {"((A+B))", "(A+B)"},
      {"X/%(A+B)", "X/%(A+B)"},
      {"X/(%(A+B)*C)", "X/%(A+B)*C"},
      {"X/%((A+B))", "X/%(A+B)"},
      // a group within a group does not deepen it
      {"X/(%(A%(B)C)+D)", "X/%(A%(B)C+D)"},
      // without a partner only the "(" goes, and the scan goes on where it stood
      {"X/(A+B", "X/A+B"},
      {"X+(", "X+"},
      {"A((+", "A+"},
      {"A(%(B(C)+", "A%(BC+"},
      // a ")" without a "(" is kept
      {"X/A+B)", "X/A+B)"},
      // a "(" that comes to stand behind "%" is a group
      {"A(B%)(C+D)", "AB%(C+D)"},
      {"", ""},
  };
  for (const auto& [line, result] : kCases) EXPECT_EQ(cleaned(line), result) << line;
}

TEST(RewriteDivisions, LineGivesResult) {
  constexpr PassCase kCases[] = {
      {"GOTO/%A/4", "GOTO/%A*0.25"},
      {"GOTO/%A/3,%B/8", "GOTO/%A*0.333333,%B*0.125"},
      {"X/%A/1000000", "X/%A*1e-06"},
      {"X/%A/-4", "X/%A/-4"},
      {"X/%A/+4", "X/%A/+4"},
      {"X/%A/", "X/%A/"},
      {"X/%A/4/", "X/%A*0.25/"},
      {"X//4", "X//4"},
      {"X/&A/4", "X/&A/4"},
      {"X/&%A/4", "X/&%A*0.25"},
      {"%A/4", "%A/4"},
      {"/%A/4", "/%A*0.25"},
      // what follows a number in the divisor goes with it
      {"X/%A/4 MM,1", "X/%A*0.25,1"},
      {"X/%A/1e1", "X/%A*0.1"},
      // an overflowing divisor is no number; nan and inf are none either
      {"X/%A/1e999", "X/%A/1e999"},
      {"X/%A/inf", "X/%A/inf"},
      {"X/%A/0x10", "X/%A/0x10"},
      // groups of "%(" are looked through
      {"X/%(NAME)/2", "X/%(NAME)*0.5"},
      {"X/%(NAME)  /2", "X/%(NAME)  *0.5"},
      {"X/%(A%(B))/2", "X/%(A%(B))/2"},
      {"X/%(A,B)/2", "X/%(A,B)/2"},
      {"X/%(A)B)/2", "X/%(A)B)/2"},
      {"X/(%A)/2", "X/(%A)/2"},
      {"X/%(A/2", "X/%(A*0.5"},
      {"X/%A)/2", "X/%A)/2"},
  };
  for (const auto& [line, result] : kCases) EXPECT_EQ(rewritten(line), result) << line;
}

TEST(GroupCursor, OperatorIsTheFirstKindAfterTheParenthesis) {
  struct Found {
    std::size_t open, close;
    char sign;
    bool operator==(const Found&) const = default;
  };
  struct GroupsOfLine {
    std::string_view line;
    std::vector<Found> groups;
  };
  const GroupsOfLine kCases[] = {
      {"", {}},
      {"8/4", {}},
      {"X/(8/4)", {{2, 6, '/'}}},
      {"(/2)", {{0, 3, '/'}}},
      {"(2/)", {{0, 3, '/'}}},
      // an operator before the "(" is not looked at
      {"8*4(5)", {}},
      {"8*4(5/1)", {{3, 7, '/'}}},
      // one after the ")" is: it hides those inside
      {"(8)/", {}},
      {"(A)(8/4)", {{3, 7, '/'}}},
      {"(A)(8/4)+1", {}},
      {"(8*4)(6/3)(9-1)", {{10, 14, '-'}}},
      {"(8/4)-(9*3)", {{6, 10, '*'}}},
      {"(1-2)(8/4)", {{0, 4, '-'}, {5, 9, '/'}}},
      {"(1+2)(3+4)(5/6)", {{0, 4, '+'}, {5, 9, '+'}, {10, 14, '/'}}},
      {"(5/6)(1+2)(3-4)(5*6)(7/8)", {{5, 9, '+'}, {10, 14, '-'}, {15, 19, '*'}, {20, 24, '/'}}},
      // a "(" within a group is part of it
      {"(1(2/3)4/5)", {{0, 6, '/'}}},
      // without a ")" there is no group
      {"(8/4", {}},
      {"(8/4)/(3", {{0, 4, '/'}}},
  };
  for (const auto& [line, expected] : kCases) {
    std::vector<Found> found;
    GroupCursor groups(line, "%");
    while (const auto group = groups.next()) {
      found.push_back({group->open, group->close, group->sign});
    }
    EXPECT_EQ(found, expected) << line;
  }
}

TEST(Signs, AreMaskedInOrderOfTheirKinds) {
  Started line("A-B,C+D*E+-F");
  SignRecords records{{9}, "?"};
  maskSigns(line, records);
  EXPECT_EQ(line.text(), "A,B,C,D,E,,F");
  EXPECT_EQ(records.ordinals, (std::vector<int>{3, 5, 4, 1, 6}));
  EXPECT_EQ(records.signs, "++*--");
  EXPECT_TRUE(restoreSigns(line, records, nullptr));
  EXPECT_EQ(line.text(), "A-B,C+D*E+-F");
}

TEST(Signs, OfTheLineBeforeAreForgotten) {
  Started line("GOTO/1");
  SignRecords records{{1}, "+"};
  maskSigns(line, records);
  EXPECT_TRUE(records.ordinals.empty());
  EXPECT_TRUE(records.signs.empty());
}

TEST(Signs, RecordsOfDifferentLengthFail) {
  Started line("A,B");
  EXPECT_FALSE(restoreSigns(line, {{1}, ""}, nullptr));
  EXPECT_FALSE(restoreSigns(line, {{}, "+"}, nullptr));
  EXPECT_FALSE(restoreSigns(line, {{1}, "+-"}, nullptr));
  EXPECT_EQ(line.text(), "A,B");
}

TEST(Signs, SignWhoseCommaIsGoneIsLost) {
  Started line("A,B");
  EXPECT_TRUE(restoreSigns(line, {{3, 1, 2}, "+*-"}, nullptr));
  EXPECT_EQ(line.text(), "A*B");
}

TEST(EvaluateLine, WithoutRecordsLineStays) {
  Started line("X/1+1- 2");
  evaluateLine(line, {}, nullptr);
  EXPECT_EQ(line.text(), "X/1+1- 2");
  evaluateLine(line, {{1}, "+"}, nullptr);
  EXPECT_EQ(line.text(), "X/    0.000000");
}

TEST(EvaluateLine, ResultThatIsNotFiniteLeavesTheOperation) {
  const std::string number(200, '9');
  Started line("X/-" + number + "*" + number + ",1+1");
  evaluateLine(line, {{1}, "+"}, nullptr);
  EXPECT_EQ(line.text(), "X/-" + number + "*" + number + ",    2.000000");
  // the bound holds for large positive ones
  line.start("X/" + number + "*" + number);
  evaluateLine(line, {{1}, "+"}, nullptr);
  EXPECT_EQ(line.text(), "X/    0.000000");
}

TEST(EvaluateLine, BlanksBehindAMinusGoFromEveryEvaluatedLine) {
  Started line("-   1,A-  B,-  -2");
  evaluateLine(line, {{1}, "+"}, nullptr);
  EXPECT_EQ(line.text(), "-1,A-B,--2");
}

TEST(ArithmeticPasses, LongLinesCostTheirLength) {
  std::string sums = "X/1";
  for (int i = 0; i < 200000; ++i) sums += "+1-1*1";
  Started line(sums);
  SignRecords records;
  maskSigns(line, records);
  ASSERT_EQ(records.signs.size(), 600000U);
  ASSERT_TRUE(restoreSigns(line, records, nullptr));
  ASSERT_EQ(line.text(), sums);
  evaluateLine(line, records, nullptr);
  EXPECT_EQ(line.text(), "X/    1.000000");
}

std::string repeated(int count, std::string_view text) {
  std::string all;
  for (; count > 0; --count) all += text;
  return all;
}

// A pass that looks again at what it has seen already does not come to an end with these lines.
TEST(ArithmeticPasses, LongLinesOfParenthesesCostTheirLength) {
  constexpr int kMany = 200000;
  const std::string openings(kMany, '(');
  const std::string closings(kMany, ')');
  EXPECT_EQ(cleaned("+" + closings), "+" + closings);
  EXPECT_EQ(cleaned("+" + openings), "+");
  EXPECT_EQ(cleaned("A+" + openings + "%(" + openings + "B)"), "A+%(" + openings.substr(1) + "B");
  EXPECT_EQ(rewritten("X" + std::string(kMany, '/')), "X" + std::string(kMany, '/'));
  const std::string groups = repeated(kMany, ")/%A/2");
  EXPECT_EQ(rewritten("X/%" + openings + groups), "X/%" + openings + repeated(kMany, ")/%A*0.5"));
}

TEST(ArithmeticPasses, LongLinesWithoutCommasOrNumbersCostTheirLength) {
  constexpr int kMany = 200000;
  const std::string blanks(kMany, ' ');
  SignRecords records;
  Started line(std::string(kMany, '+'));
  maskSigns(line, records);
  line.start("A" + blanks);
  ASSERT_TRUE(restoreSigns(line, records, nullptr));
  EXPECT_EQ(line.text(), "A" + blanks);
  for (const std::string& kept :
       {"X/" + blanks + repeated(kMany, "+1"), "X/." + repeated(kMany, "-1"),
        "X/" + blanks + "." + repeated(kMany, "-1"),
        "X/" + std::string(kMany, '1') + repeated(kMany, "-.")}) {
    line.start(kept);
    evaluateLine(line, records, nullptr);
    EXPECT_EQ(line.text(), kept);
  }
}

}  // namespace
}  // namespace ppword
