#include "language/table/CutSyntaxes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/table/TableFiles.h"

namespace {

// A line of exactly 80 characters that ends like this.
std::string wide(const std::string& end) { return std::string(80 - end.size(), 'x') + end; }

Texts mended(const Texts& cut) {
  KEPMfgPPTableTxt reader("/nowhere");
  KEPListValKEPString result;
  EXPECT_TRUE(KEPMfgPPTableTxtTest(reader).cleanListOfSyntax(listOf(cut), result));
  return texts(result);
}

struct CutCase {
  Texts cut;
  Texts mended;
};

void expectMended(const std::vector<CutCase>& cases) {
  for (const CutCase& each : cases) EXPECT_EQ(mended(each.cut), each.mended);
}

TEST(CutSyntaxes, EmptyListStaysEmpty) { EXPECT_EQ(mended({}), Texts{}); }

TEST(CutSyntaxes, ListIsAppendedTo) {
  KEPMfgPPTableTxt reader("/nowhere");
  KEPListValKEPString list = listOf({"A", "B"});
  EXPECT_TRUE(KEPMfgPPTableTxtTest(reader).cleanListOfSyntax(list, list));
  EXPECT_EQ(texts(list), (Texts{"A", "B", "A", "B"}));
}

TEST(CutSyntaxes, ParameterIsJoinedThroughTheComma) {
  const std::string line = wide(",%MFG_YPO");
  expectMended({{{line, "INT,%MFG_ZPOINT"}, {line + "INT,", "%MFG_ZPOINT"}},
                {{line, "INT,%MFG_Z,%MFG_W"}, {line + "INT,", "%MFG_Z,%MFG_W"}},
                {{line, "INT,A", "B"}, {line + "INT,", "A", "B"}}});
}

TEST(CutSyntaxes, OtherWidthsAreNotCut) {
  for (const std::string& line : {wide(",%MFG").substr(1), "x" + wide(",%MFG")}) {
    expectMended({{{line, "INT,A"}, {line, "INT,A"}}});
  }
}

TEST(CutSyntaxes, LastElementIsNeverCut) {
  const std::string line = wide(",%MFG_YPO");
  expectMended({{{line}, {line}}, {{"A", line}, {"A", line}}});
}

TEST(CutSyntaxes, LineThatEndsInACommaIsWhole) {
  const std::string line = wide("%MFG_X,");
  expectMended({{{line, "INT,A"}, {line, "INT,A"}}});
}

TEST(CutSyntaxes, LineWhoseLastArgumentIsNoParameterIsWhole) {
  const std::string line = wide(",%MFG_X,12.5");
  expectMended({{{line, "75,A"}, {line, "75,A"}}});
}

TEST(CutSyntaxes, CommaAsTheCharacterBeforeTheLastIsMetFirst) {
  const std::string line = wide("%A,B");
  expectMended({{{line, "INT,A"}, {line, "INT,A"}}});
}

TEST(CutSyntaxes, PercentAsTheLastCharacterIsNotLookedAt) {
  const std::string afterComma = wide("%A,%");
  const std::string afterParameter = wide(",%A%");
  expectMended({{{afterComma, "INT,A"}, {afterComma, "INT,A"}},
                {{afterParameter, "INT,A"}, {afterParameter + "INT,", "A"}}});
}

TEST(CutSyntaxes, LineWithoutCommaAndPercentIsWhole) {
  const std::string line = wide("");
  expectMended({{{line, "INT,A"}, {line, "INT,A"}}});
}

TEST(CutSyntaxes, PercentInColumn1IsFound) {
  const std::string line = "%" + std::string(79, 'x');
  expectMended({{{line, "INT,A"}, {line + "INT,", "A"}}});
}

TEST(CutSyntaxes, NextElementWithoutCommaLeavesTheParameterCut) {
  const std::string line = wide(",%MFG_YPO");
  expectMended({{{line, "INT"}, {line, "INT"}},
                {{line, ",INT,A"}, {line, ",INT,A"}},
                {{line, ""}, {line, ""}}});
}

TEST(CutSyntaxes, NextElementThatEndsAtItsFirstCommaStaysAsEmpty) {
  const std::string line = wide(",%MFG_YPO");
  expectMended({{{line, "INT,", "A"}, {line + "INT,", "", "A"}}});
}

TEST(CutSyntaxes, CarryReachesOverSeveralCutLines) {
  const std::string first = wide(",%MFG_XPO");
  const std::string second = "INT," + std::string(67, 'y') + ",%MFG_YPO";
  ASSERT_EQ(second.size(), 80U);
  expectMended(
      {{{first, second, "INT,A"}, {first + "INT,", std::string(67, 'y') + ",%MFG_YPOINT,", "A"}}});
}

TEST(CutSyntaxes, CarriedCharactersCountForTheWidth) {
  const std::string first = wide(",%MFG_XPO");
  const std::string second = "INT," + wide(",%MFG_YPO");
  expectMended({{{first, second, "INT,A"}, {first + "INT,", wide(",%MFG_YPO"), "INT,A"}}});
}

TEST(CutSyntaxes, FirstCommaIsThatOfTheWholeNextElement) {
  const std::string first = wide(",%MFG_XPO");
  const std::string second = "INT" + std::string(66, 'y') + ",%%MFG_YPO";
  const std::string line = wide(",%A");
  expectMended({{{line, "B,C,D"}, {line + "B,", "C,D"}}});
  EXPECT_EQ(second.size(), 79U);
  expectMended(
      {{{first, second, "A"}, {first + "INT" + std::string(66, 'y') + ",", "%%MFG_YPO", "A"}}});
}

TEST(CutSyntaxes, CompleteLineOfThatWidthIsTakenAsCut) {
  const std::string line = wide("/%MFG_XPOINT");
  expectMended({{{line, "GOTO/1,2"}, {line + "GOTO/1,", "2"}}});
}

TEST(CutSyntaxes, CharactersAreBytes) {
  const std::string line = std::string(69, 'x') + "\xC3\xA9,%MFG_YPO";
  ASSERT_EQ(line.size(), 80U);
  expectMended({{{line, "INT,A"}, {line + "INT,", "A"}}});
}

// Of 10,000 lists, each around the one before it, an element of the first may be cut.
TEST(CutSyntaxes, NestedListsAreNotLookedAtAgain) {
  constexpr std::size_t kLists = 10'000;
  Texts cut(kLists, "A");
  const std::string line = wide(",%MFG_YPO");
  cut[kLists - 2] = line;
  cut[kLists - 1] = "INT,B";
  ppword::CutSyntaxes syntaxes(cut);
  std::size_t looks = 0;
  for (std::size_t first = kLists; first-- > 0;) looks += syntaxes.mend(first, kLists);
  EXPECT_EQ(looks, 1U);
  cut[kLists - 2] = line + "INT,";
  cut[kLists - 1] = "B";
  EXPECT_EQ(syntaxes.elements(), cut);
}

// Each list hands what it got from the one in it on to the one around it.
TEST(CutSyntaxes, CharactersThatMoveThroughAllListsTakeALookAtEach) {
  constexpr std::size_t kLists = 10'000;
  Texts cut(kLists, "%" + std::string(79, 'x'));
  cut.back() = "INT,";
  ppword::CutSyntaxes syntaxes(cut);
  std::size_t looks = 0;
  for (std::size_t first = kLists; first-- > 0;) looks += syntaxes.mend(first, kLists);
  EXPECT_LE(looks, 2 * kLists);
  std::string whole;
  for (const std::string& element : cut) whole += element;
  Texts mended(kLists);
  mended[0] = whole;
  EXPECT_EQ(syntaxes.elements(), mended);
}

TEST(CutSyntaxes, ListThatIsMendedIsNotLookedAtAgain) {
  const std::string line = wide(",%MFG_YPO");
  ppword::CutSyntaxes syntaxes(Texts{line, "INT," + line, "INT,A"});
  EXPECT_EQ(syntaxes.mend(0, 3), 1U);
  EXPECT_EQ(syntaxes.mend(0, 3), 1U);
  EXPECT_EQ(syntaxes.mend(0, 3), 0U);
  EXPECT_EQ(syntaxes.elements(), (Texts{line + "INT,", line + "INT,", "A"}));
}

}  // namespace
